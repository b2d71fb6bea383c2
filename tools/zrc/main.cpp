#include "ProgramStart.h"
#include "Tool.h"

int main(int argc, char** argv)
{
    return RunTool(TakeArguments(argc, argv));
}
