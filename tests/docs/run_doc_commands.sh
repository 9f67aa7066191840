#!/bin/sh
# Runs every velko-barcode command line that README.md and docs/*.md show in a code block, with
# the velko-barcode given first on PATH, each in a fresh folder holding a copy of docs/examples,
# and checks its exit code. An HTML comment on its own line before a code block marks it:
#   <!-- not run -->   its command lines are shown, not run (a synopsis)
#   <!-- exit N -->    its command lines exit with N; 0 when unmarked
# usage: run_doc_commands.sh VELKO_BARCODE SOURCE_DIR
tool=$1
source_dir=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
PATH=$(cd "$(dirname "$tool")" && pwd):$PATH
export PATH

# One line a command: its expected exit code, where it stands, the command; tab-separated.
# Lines that end in a backslash continue on the next.
extract() {
    awk '
    FNR == 1 { fence = 0; mark = ""; used = 0; joined = "" }
    # A mark holds for the one block after it.
    /^[ \t]*```/ {
        if (fence || used) { mark = ""; used = 0 }
        fence = !fence
        next
    }
    {
        if (!fence && $0 !~ /^    /) {
            if ($0 ~ /^<!-- (not run|exit [0-9]+) -->[ \t]*$/) { mark = $0; used = 0 }
            else if ($0 !~ /^[ \t]*$/) { mark = ""; used = 0 }
            next
        }
        used = 1
        line = $0
        sub(/^[ \t]+/, "", line)
        if (joined != "") { line = joined " " line; joined = "" }
        if (line ~ /\\$/) { joined = substr(line, 1, length(line) - 1); next }
        if (line !~ /^velko-barcode( |$)/ || mark ~ /not run/) next
        code = 0
        if (mark ~ /exit/) { code = mark; gsub(/[^0-9]/, "", code) }
        printf "%s\t%s:%d\t%s\n", code, FILENAME, FNR, line
    }' "$@"
}

cd "$source_dir" || exit 1
set -- README.md
for page in docs/*.md; do
    [ -f "$page" ] && set -- "$@" "$page"
done
extract "$@" >"$work/commands"
count=$(wc -l <"$work/commands")
if [ "$count" -eq 0 ]; then
    echo "no command lines found"
    exit 1
fi
failed=0
n=0
tab=$(printf '\t')
while IFS=$tab read -r expected where command; do
    n=$((n + 1))
    folder=$work/$n
    mkdir -p "$folder/docs"
    cp -R docs/examples "$folder/docs/"
    (cd "$folder" && sh -c "$command" >"$work/output" 2>&1 </dev/null)
    got=$?
    if [ "$got" -ne "$expected" ]; then
        echo "$where: exit $got, not $expected: $command"
        sed 's/^/    /' "$work/output"
        failed=$((failed + 1))
    fi
done <"$work/commands"
echo "$((count - failed)) of $count command lines as shown"
[ "$failed" -eq 0 ]
