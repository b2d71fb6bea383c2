// The open window of a record, as far as the record knows it.
#pragma once

class CCorvaneRecord;

enum class ERecordUpdate
{
    Attached = 2,
    Detached = 3,
    Reloaded = 4,
    AttributesChanged = 5,
};

class IRecordDocument
{
public:
    virtual ~IRecordDocument() = default;
    // The record is emptied or deleted: the document lets go of it and closes.
    virtual void OnRecordGone(CCorvaneRecord& record) = 0;
    virtual void UpdateViews(ERecordUpdate hint) = 0;
};
