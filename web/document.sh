#!/bin/sh
# Makes a page of a document: document.sh DOCUMENT TITLE PAGE.
exec >"$3"
cat <<HEAD
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Quorrel: $2</title>
<link rel="icon" href="icon.svg">
<link rel="stylesheet" href="page.css">
</head>
<body>
<article>
<nav><a href="./">Play Quorrel</a></nav>
HEAD
cmark-gfm --unsafe --extension table "$1" | sed 's/\(href="[a-z-]*\)\.md/\1.html/g'
cat <<FOOT
</article>
</body>
</html>
FOOT
