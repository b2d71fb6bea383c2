#include "DeferDeprecatedAttribDlg.h"

CDeferDeprecatedAttribDlg::CDeferDeprecatedAttribDlg(std::uint32_t build, QWidget* parent)
    : CDeferAttribDlg({u"Deprecate Attribute", u"&Deprecated Build Number:",
                       u"A new attribute will be created that will be used in builds greater than and equal "
                       u"to the build specified by the deprecated build number.",
                       u"The current value will become deprecated and will only be used in builds less than "
                       u"the build specified by the deprecated build number."},
                      build, parent)
{
    setObjectName(QStringLiteral("DeferDeprecatedAttribDlg"));
}
