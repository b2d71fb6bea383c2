# What cannot be written leaves the old file and nothing beside it.
head -c 5000 /dev/zero >big.a
echo old >big.c
zrc compress big.a -o good.c
(ulimit -f 1 && zrc expand good.c --force -o big.c)
echo "status $?"
zrc expand good.c -o - >/dev/full
echo "status $?"
zrc view good.c >/dev/full
echo "status $?"
zrc --version >/dev/full
echo "status $?"
cat big.c
ls -A
