// Functions for frames_test.cpp, written like the output of a compiler for the phone and of a compiler for Linux.

    .text

.macro function name
    .globl \name
    .hidden \name
    .type \name, %function
    .p2align 4
\name:
.endm

// Saves the callee-saved registers as a function of the phone's library does, overwrites them, and calls the function
// in x0. Has no call frame information.
function function_of_the_phone
    stp d15, d14, [sp, #-160]!
    stp d13, d12, [sp, #16]
    stp d11, d10, [sp, #32]
    stp d9, d8, [sp, #48]
    stp x28, x27, [sp, #64]
    stp x26, x25, [sp, #80]
    stp x24, x23, [sp, #96]
    stp x22, x21, [sp, #112]
    stp x20, x19, [sp, #128]
    stp x29, x30, [sp, #144]
    add x29, sp, #144
    .irp number, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28
    mov x\number, #0
    .endr
    .irp number, 8, 9, 10, 11, 12, 13, 14, 15
    fmov d\number, xzr
    .endr
    blr x0
    ldp x29, x30, [sp, #144]
    ldp x20, x19, [sp, #128]
    ldp x22, x21, [sp, #112]
    ldp x24, x23, [sp, #96]
    ldp x26, x25, [sp, #80]
    ldp x28, x27, [sp, #64]
    ldp d9, d8, [sp, #48]
    ldp d11, d10, [sp, #32]
    ldp d13, d12, [sp, #16]
    ldp d15, d14, [sp], #160
    ret
    .globl end_of_function_of_the_phone
    .hidden end_of_function_of_the_phone
end_of_function_of_the_phone:
    .size function_of_the_phone, . - function_of_the_phone

// Sets each callee-saved register to its own number, and calls function_of_the_phone with x0.
function function_with_known_registers
    .cfi_startproc
    stp x29, x30, [sp, #-160]!
    .cfi_def_cfa_offset 160
    .cfi_offset x29, -160
    .cfi_offset x30, -152
    mov x29, sp
.macro save first, second, position
    stp \first, \second, [sp, #\position]
    .cfi_offset \first, \position - 160
    .cfi_offset \second, \position - 152
.endm
    save x19, x20, 16
    save x21, x22, 32
    save x23, x24, 48
    save x25, x26, 64
    save x27, x28, 80
    save d8, d9, 96
    save d10, d11, 112
    save d12, d13, 128
    save d14, d15, 144
    .irp number, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28
    mov x\number, #\number
    .endr
    .irp number, 8, 9, 10, 11, 12, 13, 14, 15
    mov x1, #\number
    fmov d\number, x1
    .endr
    bl function_of_the_phone
    ldp x19, x20, [sp, #16]
    ldp x21, x22, [sp, #32]
    ldp x23, x24, [sp, #48]
    ldp x25, x26, [sp, #64]
    ldp x27, x28, [sp, #80]
    ldp d8, d9, [sp, #96]
    ldp d10, d11, [sp, #112]
    ldp d12, d13, [sp, #128]
    ldp d14, d15, [sp, #144]
    ldp x29, x30, [sp], #160
    ret
    .cfi_endproc
    .globl end_of_function_with_known_registers
    .hidden end_of_function_with_known_registers
end_of_function_with_known_registers:
    .size function_with_known_registers, . - function_with_known_registers

    .section .note.GNU-stack, "", %progbits
