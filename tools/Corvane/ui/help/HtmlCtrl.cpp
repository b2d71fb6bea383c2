#include "HtmlCtrl.h"

#include "HelpPage.h"
#include "QtText.h"

CHtmlCtrl::CHtmlCtrl(QWidget* parent) : CCorvaneHtmlView(parent)
{
    setObjectName(QStringLiteral("helpText"));
}

void CHtmlCtrl::SetHelp(std::u16string_view help)
{
    NavigateMemory(ToQString(BuildHelpStringPage(help)));
}
