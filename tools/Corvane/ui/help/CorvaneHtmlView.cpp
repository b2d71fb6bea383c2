#include "CorvaneHtmlView.h"

#include "HelpMarkup.h"
#include "HelpPage.h"
#include "HelpTemplates.h"
#include "IconSet.h"
#include "QtText.h"
#include "Theme.h"
#include "host/Services.h"

#include <QEvent>
#include <QIcon>
#include <QPixmap>
#include <QScrollBar>

namespace
{
constexpr int kIconSize = 32;

std::uint32_t GetRgb(EThemeColor color)
{
    return CTheme::Get().GetColor(color).rgb() & 0xFFFFFF;
}
} // namespace

CCorvaneHtmlView::CCorvaneHtmlView(QWidget* parent) : QTextBrowser(parent)
{
    setObjectName(QStringLiteral("help"));
    setAccessibleName(QStringLiteral("Help"));
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(0);
    connect(this, &QTextBrowser::anchorClicked, this, &CCorvaneHtmlView::OpenLink);
}

void CCorvaneHtmlView::NavigateMemory(const QString& html)
{
    m_sPage = html;
    Render();
}

void CCorvaneHtmlView::Clear()
{
    m_sPage.clear();
    clear();
}

void CCorvaneHtmlView::Render()
{
    if (m_sPage.isEmpty())
    {
        clear();
        return;
    }
    std::u16string page = ToText(m_sPage);
    ResolveColors(page, {GetRgb(EThemeColor::Header), GetRgb(EThemeColor::Item)});
    setHtml(ToQString(page));
}

// A page may name nothing else. The answer for anything is never null: a document would look for the file of
// that name itself.
QVariant CCorvaneHtmlView::loadResource(int type, const QUrl& name)
{
    const std::u16string source = ToText(name.toString());
    if (type == QTextDocument::ImageResource && source == kHelpStrut)
    {
        QPixmap strut(1, 1);
        strut.fill(Qt::transparent);
        return strut;
    }
    const char* icon = GetHelpIconName(source);
    if (type != QTextDocument::ImageResource || icon == nullptr)
        return QByteArray("");
    return GetIcon(icon).pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF());
}

void CCorvaneHtmlView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_sPage.isEmpty())
        return;
    const int position = verticalScrollBar()->value();
    Render();
    verticalScrollBar()->setValue(position);
}

void CCorvaneHtmlView::OpenLink(const QUrl& url)
{
    const std::u16string address = ToText(QString::fromUtf8(url.toEncoded()));
    // Nothing to tell when the desktop has no browser: the address stands on the page.
    if (m_pServices != nullptr && IsValidURL(address))
        static_cast<void>(m_pServices->OpenLink(address));
}
