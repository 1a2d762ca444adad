# Debian's changelog from CHANGELOG.md: an entry for each heading of a version, a section for each of
# the headings below it. Variables: version, date of what is not released yet; maintainer.
function rfc_date(day,    command, text) {
    command = "date -u -R -d " day
    command | getline text
    close(command)
    return text
}
# In lines of at most 80 characters.
function print_item(    words, count, i, line) {
    count = split(item, words, " ")
    line = "  *"
    for (i = 1; i <= count; ++i) {
        if (length(line) + 1 + length(words[i]) > 80) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    if (count) print line
    item = ""
}
function finish() {
    print_item()
    if (open) printf "\n -- %s  %s\n\n", maintainer, when
}
/^## / {
    finish()
    open = 1
    when = date
    if ($2 != "Unreleased") {
        version = $2
        gsub(/[\[\]]/, "", version)
        when = rfc_date($NF)
    }
    printf "vaultry (%s) unstable; urgency=medium\n", version
}
!open { next }
/^### / { print_item(); printf "\n  [ %s ]\n", substr($0, 5) }
/^- / { print_item(); item = substr($0, 3) }
/^  / { item = item " " $0 }
END { finish() }
