// A library that loads and exports nothing that a compile could use.
extern "C" __attribute__((visibility("default"))) int GetSomethingElse()
{
    return 1;
}
