// The border between the system and the run-time library of a game's string tables, which tells which
// identifiers of texts there are.
//
// The library exports one C function without arguments that returns an interface; the library owns it, and it
// lives until the process ends. The system calls from one thread. Null, or a library without the export, means
// that there is none: the system goes on without checks.
//
// A handle is a non-zero number of the library's choice, valid from Open until Close; 0 means failure. Narrow
// text is UTF-8, terminated, and valid only during the call. A library must not let an exception cross this
// border; the system treats one as a failure. Identifiers are compared byte by byte.
#pragma once

#include <cstdint>

class IZRInStream;

using HGLOSSAR = std::uint64_t;

// Told an identifier and the `context` that the lister gave. It does not throw and does not call the library.
using GlossarListFn = void (*)(const char* identifier, void* context);

class IGlossarMgr
{
public:
    virtual ~IGlossarMgr() = default;

    // Reads the table that the stream holds; 0 when it is none. The caller keeps its reference to the stream
    // and gives it back after the call: a library that works in place takes one of its own until Close.
    [[nodiscard]] virtual HGLOSSAR Open(IZRInStream* stream) = 0;
    // A handle that is not open is ignored.
    virtual void Close(HGLOSSAR database) = 0;
    // False also for a handle that is not open.
    [[nodiscard]] virtual bool HasString(HGLOSSAR database, const char* identifier) = 0;
    // Tells every identifier that begins with `prefix`, in the order of their bytes, all of them for an empty
    // one. True when there was any.
    virtual bool ListStrings(HGLOSSAR database, const char* prefix, GlossarListFn callback,
                             void* context) = 0;
};

// Name and form of the export.
inline constexpr const char* kGetIGlossarMgr = "GetIGlossarMgr";
using GetIGlossarMgrFn = IGlossarMgr* (*)();
