// The icons of the editor, drawn for it as SVG in one visual language. An icon follows the theme and is sharp
// at every scale.
#pragma once

#include <QIcon>
#include <QStringList>

// By name, as in icons/<name>.svg. An unknown name is an assertion and gives an empty icon.
[[nodiscard]] QIcon GetIcon(const char* name);
// The names of all icons.
[[nodiscard]] QStringList GetIconNames();
