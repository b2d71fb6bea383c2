// Fills the registry of views with the view of every type whose folder has one; its code is generated from
// the list of types in this folder's CMakeLists.txt. Whoever starts the windows calls it once:
// RegisterTypeViews(GetTypeViews()).
#pragma once

class CTypeViewRegistry;

void RegisterTypeViews(CTypeViewRegistry& views);
