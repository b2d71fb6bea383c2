# Both conversions with every kind of source and target. Sources stay as they are.
printf '\n(a "x" \n\t(b 1 )\n)\n' >one.Da
cp one.Da "odd '$(printf '\033')\".A"
: >other
zrc compress one.Da missing.a other . odd*
echo "status $?"
head -c 4 one.Dc | od -An -tx1
zrc expand one.Dc odd*.C
echo "status $?"
echo lost >one.Da
zrc expand one.Dc --force && zrc expand odd*.C -o back && cat one.Da back
zrc compress - <one.Da | tee piped | zrc expand - && cmp piped one.Dc && echo equal
zrc expand other one.Da -- -x.c
zrc compress back -o back --force
ln -s one.Da l.c
zrc compress one.Da --force -o l.c
zrc expand -o . one.Dc
zrc expand -o . one.Dc --force
zrc expand -o ./x/y one.Dc
zrc expand -o x one.Da
printf '\0\0\0' | zrc expand - -o x
printf '\0\0\0\1' | zrc expand - -o x
printf '\0\0\0\0' | zrc expand - | wc -c
zrc compress . -o x
zrc expand - <one.Da
cmp one.Da back && ls | od -An -c | grep -c 033
rm odd*
ls
