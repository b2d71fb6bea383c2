# A view on a terminal, where 'script' stands for one, and elsewhere.
printf '\n(a "\033" \n\t(b 1 )\n)\n' >one.a
zrc compress one.a -o odd.a && zrc view odd.a && zrc view - <one.a
head -c 200000 /dev/zero | tr '\0' '(' >long
(zrc view long; echo "status $?" >&2) | head -n 2
zrc=$(command -v zrc)
show() {
  timeout 20 script -qec "$1 '$zrc' view $2" /dev/null | tr -d '\r'
}
show "PAGER='sed s/^/>/'" one.a
show "PAGER='head -n1'" long
show PAGER=no-such-pager one.a
show 'PAGER= PATH=/no-such-directory' one.a
zrc view missing
echo "status $?"
