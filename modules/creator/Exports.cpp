#include "DatabaseCreatorMgr.h"

// The library's one object, which lives as long as the process.
extern "C" __attribute__((visibility("default"))) IDatabaseCreatorMgr* GetIDatabaseCreatorMgr()
{
    static CDatabaseCreatorMgr creator;
    return &creator;
}
