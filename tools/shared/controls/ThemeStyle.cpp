#include "ThemeStyle.h"

#include "IconSet.h"
#include "Theme.h"

#include <QPainter>
#include <QStyleOption>

namespace
{
constexpr int kMessageIconSize = 32;

struct SStandardIcon
{
    QStyle::StandardPixmap m_Pixmap;
    const char* m_sIcon;
};

constexpr SStandardIcon kStandardIcons[] = {
    {QStyle::SP_MessageBoxInformation, "information"},
    {QStyle::SP_MessageBoxWarning, "warning"},
    {QStyle::SP_MessageBoxCritical, "error"},
    {QStyle::SP_MessageBoxQuestion, "question"},
    {QStyle::SP_DirIcon, "folder"},
    {QStyle::SP_DirOpenIcon, "open"},
    {QStyle::SP_DirClosedIcon, "folder"},
    {QStyle::SP_FileIcon, "file"},
    {QStyle::SP_LineEditClearButton, "clear"},
    {QStyle::SP_ToolBarHorizontalExtensionButton, "more"},
    {QStyle::SP_ArrowUp, "arrow-up"},
    {QStyle::SP_ArrowDown, "arrow-down"},
    {QStyle::SP_ArrowLeft, "arrow-left"},
    {QStyle::SP_ArrowRight, "arrow-right"},
    {QStyle::SP_ArrowBack, "arrow-left"},
    {QStyle::SP_ArrowForward, "arrow-right"},
    {QStyle::SP_FileDialogToParent, "arrow-up"},
    {QStyle::SP_FileDialogNewFolder, "new-category"},
    {QStyle::SP_MediaPlay, "play"},
};

const char* FindIconName(QStyle::StandardPixmap pixmap)
{
    for (const SStandardIcon& row : kStandardIcons)
    {
        if (row.m_Pixmap == pixmap)
            return row.m_sIcon;
    }
    return nullptr;
}

bool IsMessageIcon(QStyle::StandardPixmap pixmap)
{
    return pixmap >= QStyle::SP_MessageBoxInformation && pixmap <= QStyle::SP_MessageBoxQuestion;
}

void DrawOutline(QPainter& painter, EThemeColor color, const QRectF& rect, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(CTheme::Get().GetColor(color));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}
} // namespace

CThemeStyle::CThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    // A field to be read only has the colour of what it lies on.
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == PE_PanelLineEdit && frame != nullptr && (frame->state & State_ReadOnly) != 0)
    {
        QStyleOptionFrame readOnly(*frame);
        readOnly.palette.setBrush(QPalette::Base, frame->palette.window());
        QProxyStyle::drawPrimitive(element, &readOnly, painter, widget);
        return;
    }
    if (element != PE_FrameFocusRect)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    // The frames of fields and boxes are hard to see in a dark theme as the toolkit draws them.
    const bool focused = (option->state & State_HasFocus) != 0;
    const QRectF rect = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_FrameFocusRect)
        DrawOutline(*painter, EThemeColor::Accent, rect, 2);
    else if (element == PE_FrameLineEdit && !focused)
        DrawOutline(*painter, EThemeColor::Border, rect, 2);
    else if (element == PE_IndicatorCheckBox && (option->state & State_Enabled) != 0)
        DrawOutline(*painter, EThemeColor::Border, rect, 0);
    else if (element == PE_IndicatorRadioButton && (option->state & State_Enabled) != 0)
        DrawOutline(*painter, EThemeColor::Border, rect, rect.width() / 2);
}

int CThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric)
    {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return CTheme::kMargin;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return CTheme::kSpacing;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ToolBarIconSize:
    case PM_TabBarIconSize:
    case PM_ListViewIconSize:
        return CTheme::kIconSize;
    case PM_MessageBoxIconSize:
        return kMessageIconSize;
    case PM_SplitterWidth:
        return CTheme::kGrid;
    case PM_ToolBarItemSpacing:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const
{
    switch (hint)
    {
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_ItemView_ShowDecorationSelected:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QIcon CThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    const char* name = FindIconName(icon);
    return name == nullptr ? QProxyStyle::standardIcon(icon, option, widget) : GetIcon(name);
}

QPixmap CThemeStyle::standardPixmap(StandardPixmap pixmap, const QStyleOption* option,
                                    const QWidget* widget) const
{
    const char* name = FindIconName(pixmap);
    if (name == nullptr)
        return QProxyStyle::standardPixmap(pixmap, option, widget);
    const int size = IsMessageIcon(pixmap) ? kMessageIconSize : CTheme::kIconSize;
    return GetIcon(name).pixmap(size, size);
}
