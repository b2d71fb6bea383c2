// A field for a path with a list of those that were used before.
#pragma once

#include <QComboBox>
#include <functional>

class QBoxLayout;

class CPathCombo final : public QComboBox
{
public:
    explicit CPathCombo(QWidget* parent = nullptr);

protected:
    // A path that is longer than the field is shown whole in the tip.
    bool event(QEvent* event) override;
};

// The field with the button "..." behind it, which runs `browse`.
void AddWithBrowse(QBoxLayout& layout, QComboBox& field, const char* objectName,
                   std::function<void()> browse);
