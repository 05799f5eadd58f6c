# Made by packaging/make-from-help.
complete -c korvane-editor -s h -l help -d 'Show the help.'
complete -c korvane-editor -l version -d 'Show the version.'
