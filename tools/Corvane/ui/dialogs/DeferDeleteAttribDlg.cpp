#include "DeferDeleteAttribDlg.h"

CDeferDeleteAttribDlg::CDeferDeleteAttribDlg(std::uint32_t build, QWidget* parent)
    : CDeferAttribDlg({u"Delete Attribute", u"&Deleted Build Number:",
                       u"The attribute will be removed from builds greater than and equal to the build "
                       u"specified by the deleted build number.",
                       u"The current value will become deleted and will only be used in builds less than the "
                       u"build specified by the deleted build number."},
                      build, parent)
{
    setObjectName(QStringLiteral("DeferDeleteAttribDlg"));
}
