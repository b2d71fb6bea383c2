#include "DatabaseCreatorMgr.h"
#include "DatabaseCreatorUnpackedMgr.h"

// The library's objects, one of each, which live as long as the process.
extern "C" __attribute__((visibility("default"))) IDatabaseCreatorMgr* GetIDatabaseCreatorMgr()
{
    static CDatabaseCreatorMgr creator;
    return &creator;
}

extern "C" __attribute__((visibility("default"))) IDatabaseCreatorUnpackedMgr*
GetIDatabaseCreatorUnpackedMgr()
{
    static CDatabaseCreatorUnpackedMgr creator;
    return &creator;
}
