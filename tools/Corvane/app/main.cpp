#include "CorvaneApp.h"
#include "Unicode.h"

#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace
{
// A build machine may start the program without its three standard streams. Their numbers must not go to the
// next files that are opened: a message would be written into a database.
void OccupyStandardStreams()
{
    int stream = 0;
    do
        stream = ::open("/dev/null", O_RDWR);
    while (stream >= 0 && stream <= STDERR_FILENO);
    if (stream >= 0)
        ::close(stream);
}
} // namespace

int main(int argc, char** argv)
{
    OccupyStandardStreams();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(ToWide(argv[i]));

    CCorvaneApp app;
    if (app.InitInstance(arguments))
        app.Run();
    // The system keeps the low 8 bits: 0x80004005 arrives as 5.
    return app.ExitInstance();
}
