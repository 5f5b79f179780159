# Turns CHANGELOG.md into the releases of AppStream's form. A version's date stands behind its number:
# "## 1.02 (2027-01-31)"; a version without one has `date`. The newest version has to be `version`.

function marked_up(text,   parts, count, i, result) {
  gsub(/&/, "\\&amp;", text)
  gsub(/</, "\\&lt;", text)
  gsub(/>/, "\\&gt;", text)
  count = split(text, parts, "`")
  for (i = 1; i <= count; i++) result = result (i % 2 ? parts[i] : "<code>" parts[i] "</code>")
  return result
}

function write_item() {
  if (item != "") print "          <li>" marked_up(item) "</li>"
  item = ""
}

function write_end() {
  if (!versions) return
  write_item()
  print "        </ul>\n      </description>\n    </release>"
}

/^## / {
  write_end()
  if (!versions && $2 != version) {
    print "error: the newest version of the changelog is " $2 ", not " version > "/dev/stderr"
    failed = 1
    exit
  }
  versions++
  day = match($0, /[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]/) ? substr($0, RSTART, 10) : date
  print "    <release version=\"" $2 "\" date=\"" day "\">\n      <description>\n        <ul>"
  next
}

/^- / { write_item(); item = substr($0, 3); next }
/^  / { item = item " " substr($0, 3); next }

END {
  if (!failed) write_end()
  exit failed
}
