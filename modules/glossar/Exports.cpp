#include "GlossarMgr.h"

// The library's one object, which lives as long as the process.
extern "C" __attribute__((visibility("default"))) IGlossarMgr* GetIGlossarMgr()
{
    static CGlossarMgr glossar;
    return &glossar;
}
