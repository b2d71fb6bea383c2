// Fills the two registries with every type of the system; its code is generated from the list of types in
// this folder's CMakeLists.txt, in the order of that list.
//
// Each word of the list has a folder: its attribute class, its attribute data, its tests, and as the only
// files of the UI target its view, its value dialog and its find panel. Folders are named after the word,
// except that several words may share one; `text` holds CCorvaneTypeString.
#pragma once

class CCorvaneTypeMgr;
class CorvaneSchemaAttribDataMgr;

// Called once, before anything is loaded. Each word goes to the type registry first, then to the other.
void RegisterCorvaneTypes(CCorvaneTypeMgr& types, CorvaneSchemaAttribDataMgr& attribData);
