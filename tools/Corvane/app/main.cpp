#include "CorvaneApp.h"
#include "ProgramStart.h"

int main(int argc, char** argv)
{
    const std::vector<std::u16string> arguments = TakeArguments(argc, argv);
    CCorvaneApp app;
    if (app.InitInstance(arguments))
        app.Run();
    // The system keeps the low 8 bits: 0x80004005 arrives as 5.
    return app.ExitInstance();
}
