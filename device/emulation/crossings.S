// The functions through which the phone's library and code for Linux call each other. Each one preserves all registers
// that can contain arguments: x0 to x8 and q0 to q7.

    .text

// Saves the registers and calls a function with x17 and the address of the saved registers, which the function can
// change (struct emulation::Registers). Then restores the registers and jumps to the address that the function returned.
.macro jump_to_result_of function
    stp x29, x30, [sp, #-224]!
    .cfi_adjust_cfa_offset 224
    .cfi_rel_offset x29, 0
    .cfi_rel_offset x30, 8
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    str x8, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    mov x0, x17
    add x1, sp, #16
    bl \function
    mov x16, x0
    ldp x0, x1, [sp, #16]
    ldp x2, x3, [sp, #32]
    ldp x4, x5, [sp, #48]
    ldp x6, x7, [sp, #64]
    ldr x8, [sp, #80]
    ldp q0, q1, [sp, #96]
    ldp q2, q3, [sp, #128]
    ldp q4, q5, [sp, #160]
    ldp q6, q7, [sp, #192]
    ldp x29, x30, [sp], #224
    .cfi_adjust_cfa_offset -224
    .cfi_restore x29
    .cfi_restore x30
    br x16
.endm

.macro function name
    .globl \name
    .hidden \name
    .type \name, %function
    .p2align 4
\name:
    .cfi_startproc
.endm

.macro end_function name
    .cfi_endproc
    .size \name, . - \name
.endm

// The phone's objc_msgSend. A message to nil returns zero, in every register that can contain a result.
function emulation_send_message
    cbz x0, 1f
    jump_to_result_of emulation_method_for_message
1:  mov x1, #0
    movi v0.2d, #0
    movi v1.2d, #0
    movi v2.2d, #0
    movi v3.2d, #0
    ret
end_function emulation_send_message

// Stub n of the first table calls a function of the library.
function emulation_enter_library
    jump_to_result_of emulation_extend_arguments
end_function emulation_enter_library

function emulation_entry_stubs
.set number, 0
.rept 1024
    mov x17, #number
    b emulation_enter_library
    .set number, number + 1
.endr
end_function emulation_entry_stubs

// Stub n of the second table calls a function for Linux that has a narrow result and no arguments on the stack.
function emulation_leave_library
    stp x29, x30, [sp, #-32]!
    .cfi_adjust_cfa_offset 32
    .cfi_rel_offset x29, 0
    .cfi_rel_offset x30, 8
    mov x29, sp
    str x17, [sp, #16]
    adrp x16, emulation_exit_targets
    add x16, x16, :lo12:emulation_exit_targets
    ldr x16, [x16, x17, lsl #3]
    blr x16
    ldr x1, [sp, #16]
    bl emulation_extend_result
    ldp x29, x30, [sp], #32
    .cfi_adjust_cfa_offset -32
    .cfi_restore x29
    .cfi_restore x30
    ret
end_function emulation_leave_library

function emulation_exit_stubs
.set number, 0
.rept 512
    mov x17, #number
    b emulation_leave_library
    .set number, number + 1
.endr
end_function emulation_exit_stubs

    .section .note.GNU-stack, "", %progbits
