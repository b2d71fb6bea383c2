// A library that the module tests load.
extern "C" __attribute__((visibility("default"))) int GetAnswer()
{
    return 42;
}
