// The properties of what is selected in a tree or in a list.
//
// Each call is modal and returns whether something was changed. It ends by itself when its object goes; hold
// no pointer to the object across it without a reference.
#pragma once

class CCorvaneCategory;
class CCorvaneRecord;
class CCorvaneSchema;
class CCorvaneType;
class IEditorFrame;

bool ShowProperties(IEditorFrame& frame, CCorvaneRecord& record);
bool ShowProperties(IEditorFrame& frame, CCorvaneCategory& category);
bool ShowProperties(IEditorFrame& frame, CCorvaneSchema& schema);
// Also for a member of a struct value.
bool ShowProperties(IEditorFrame& frame, CCorvaneType& attribute);
