#include "vectors/CorvaneTypeVectorView.h"

#include "NumberText.h"
#include "QtText.h"
#include "vectors/CorvaneTypeVector.h"
#include "vectors/CorvaneTypeVectorValueDlg.h"

CCorvaneTypeVectorView::CCorvaneTypeVectorView(CCorvaneTypeVector& attrib, ITypeViewList& list)
    : CCorvaneTypeNumbersView(attrib, list), m_Attrib(attrib)
{
}

std::size_t CCorvaneTypeVectorView::GetComponentCount() const
{
    switch (m_Attrib.GetDimension())
    {
    case EVectorDimension::Two:
        return 2;
    case EVectorDimension::Four:
        return 4;
    default:
        return 3;
    }
}

QStringList CCorvaneTypeVectorView::GetNumbers(int item) const
{
    const VectorValue value = m_Attrib.GetVector(static_cast<std::size_t>(item));
    QStringList numbers;
    for (std::size_t i = 0; i < GetComponentCount(); ++i)
        numbers += ToQString(FormatFloat(static_cast<double>(value[i])));
    return numbers;
}

CCorvaneTypeValueDlg* CCorvaneTypeVectorView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeVectorValueDlg(*this, GetComponentCount(), parent);
}
