# Wrong usage, and the texts that help.
zrc
echo "status $?"
for arguments in 'pack x' compress 'compress a b -o c' 'compress a -o=' 'compress a -o' 'compress a --fast' \
  'view a b' 'view a --force'; do
  zrc $arguments
  echo "status $?"
done
for command in '' compress expand view; do
  zrc $command --help
done
zrc --version | sed 's/[0-9]/N/g'
