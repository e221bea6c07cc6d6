# Completion of ./brim in fish: source this file.
function __brim_candidates
    set -l words (commandline --current-process --tokenize --cut-at-cursor)
    $words[1] candidates $words[2..-1] 2>/dev/null
end
complete --command brim --condition 'count (__brim_candidates) >/dev/null' --no-files --arguments '(__brim_candidates)'
