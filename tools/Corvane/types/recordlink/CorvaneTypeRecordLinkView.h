// Shows a RecordLink and edits it in the browser that picks a record.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeRecordLink;

class CCorvaneTypeRecordLinkView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeRecordLinkView(CCorvaneTypeRecordLink& attrib, ITypeViewList& list);

    // Runs the browser; the edit is over when it returns.
    [[nodiscard]] EViewUpdate BeginEdit(const QRect& cell, int item = kHeaderItem) override;

private:
    CCorvaneTypeRecordLink& m_Attrib;
};
