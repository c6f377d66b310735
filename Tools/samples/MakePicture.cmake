# Writes FILE, eleven mebibytes of blanks that stand for a picture.

string(REPEAT " " 1048576 mebibyte)
string(REPEAT "${mebibyte}" 11 picture)
file(WRITE ${FILE} "${picture}")
