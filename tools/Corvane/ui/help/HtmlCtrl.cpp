#include "HtmlCtrl.h"

#include "HelpPage.h"
#include "QtText.h"
#include "Theme.h"

#include <QTextDocument>

CHtmlCtrl::CHtmlCtrl(QWidget* parent) : CCorvaneHtmlView(parent)
{
    setObjectName(QStringLiteral("helpText"));
    // It lies among fields, of which only those that can be changed have their colour.
    viewport()->setBackgroundRole(QPalette::Window);
    document()->setDocumentMargin(CTheme::kGrid);
}

void CHtmlCtrl::SetHelp(std::u16string_view help)
{
    NavigateMemory(ToQString(BuildHelpStringPage(help)));
}
