// Shows and edits a vector of two, three or four numbers.
#pragma once

#include "views/CorvaneTypeNumbersView.h"

class CCorvaneTypeVector;

class CCorvaneTypeVectorView final : public CCorvaneTypeNumbersView
{
public:
    CCorvaneTypeVectorView(CCorvaneTypeVector& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] QStringList GetNumbers(int item) const override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    [[nodiscard]] std::size_t GetComponentCount() const;

    const CCorvaneTypeVector& m_Attrib;
};
