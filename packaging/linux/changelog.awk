# Turns CHANGELOG.md into Debian's form of a changelog. A version's date stands behind its number: "## 1.02 (2027-01-31)";
# a version without one has `date`. The newest version has to be `version`.

function write_item(   words, count, i, line) {
  if (item == "") return
  count = split(item, words, " ")
  line = "  *"
  for (i = 1; i <= count; i++) {
    if (length(line) + 1 + length(words[i]) > 78) {
      print line
      line = "   "
    }
    line = line " " words[i]
  }
  print line
  item = ""
}

function write_end(   command, stamp) {
  if (!versions) return
  write_item()
  command = "LC_ALL=C date --utc --rfc-email --date=" day
  command | getline stamp
  close(command)
  print "\n -- " maintainer "  " stamp
}

/^## / {
  write_end()
  if (!versions && $2 != version) {
    print "error: the newest version of the changelog is " $2 ", not " version > "/dev/stderr"
    failed = 1
    exit
  }
  if (versions++) print ""
  day = match($0, /[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]/) ? substr($0, RSTART, 10) : date
  print "quillon (" $2 ") unstable; urgency=medium\n"
  next
}

/^- / { write_item(); item = substr($0, 3); next }
/^  / { item = item " " substr($0, 3); next }

END {
  if (!failed) write_end()
  exit failed
}
