#include "CorvaneApp.h"
#include "Unicode.h"

#include <vector>

int main(int argc, char** argv)
{
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(ToWide(argv[i]));

    CCorvaneApp app;
    if (app.InitInstance(arguments))
        app.Run();
    // The system keeps the low 8 bits: 0x80004005 arrives as 5.
    return app.ExitInstance();
}
