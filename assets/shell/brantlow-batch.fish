# Completion of brantlow-batch for fish: commands, options and files, as the tool's own help tells them.

# The lines of a help text below one of its headings: the word, a tab, the explanation.
function __brantlow_batch_rows
    awk -v head="$argv[1]:" '$0 == head { on = 1; next } /^[A-Z]/ { on = 0 }
        on && NF { word = $1; sub(/^ *[^ ]+ */, ""); print word "\t" $0 }'
end

# The command on the line so far, empty before it.
function __brantlow_batch_command
    set -l words (commandline -opc)
    set -l i 2
    while test $i -le (count $words)
        switch $words[$i]
            case --app --today --time
                set i (math $i + 1)
            case '-*'
            case '*'
                echo $words[$i]
                return
        end
        set i (math $i + 1)
    end
end

function __brantlow_batch_folder
    set -l words (commandline -opc)
    set -l place (contains -i -- --app $words)
    and echo $words[(math $place + 1)]
    or dirname (command -v $words[1])
end

function __brantlow_batch_operands
    set -l operand (string split ' ' (brantlow-batch (__brantlow_batch_command) --help 2>/dev/null | head -n 1))[4]
    switch "$operand"
        case FILE A
            set -l folder (__brantlow_batch_folder)/Data
            set -l tables $folder/*.ddq
            string replace -r '.*/' '' $tables
        case '*|*'
            string split '|' $operand
    end
end

complete -c brantlow-batch -f
complete -c brantlow-batch -n 'test -z (__brantlow_batch_command)' -a '(brantlow-batch --help 2>/dev/null | __brantlow_batch_rows Commands)'
complete -c brantlow-batch -n 'test -n (__brantlow_batch_command)' -a '(__brantlow_batch_operands)'
complete -c brantlow-batch -n 'string match -q -- "-*" (commandline -ct)' -a '(brantlow-batch (__brantlow_batch_command) --help 2>/dev/null | __brantlow_batch_rows Options)'
complete -c brantlow-batch -n 'string match -q -- --app (commandline -opc)[-1]' -a '(__fish_complete_directories)'
complete -c brantlow-batch -n 'string match -q -- --interval (commandline -opc)[-1]' -a 'daily weekly monthly'
complete -c brantlow-batch -n 'string match -q -- --style (commandline -opc)[-1]' -a 'default candlestick'
complete -c brantlow-batch -n 'string match -q -- --years (commandline -opc)[-1]' -a '2 5 10 20'
