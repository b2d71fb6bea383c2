// The parts that the dialogs are put together from, so that all have one look: notes that wrap, radio buttons
// that tell what they do, fields for build numbers, the row of buttons at the end.
#pragma once

#include <QLineEdit>
#include <cstdint>
#include <string_view>

class QBoxLayout;
class QDialog;
class QDialogButtonBox;
class QLabel;
class QRadioButton;

// A vertical layout of the dialog with the margins of the theme.
[[nodiscard]] QBoxLayout& MakeDialogLayout(QDialog& dialog);
// A text of several lines below the last part.
QLabel& AddNote(QBoxLayout& layout, std::u16string_view text);
// A radio button from "name\nwhat it does". `name` may have a '&'; what it does stands below and is the
// button's description for a screen reader. A click on either chooses.
QRadioButton& AddChoice(QBoxLayout& layout, const char* objectName, std::u16string_view text);
// The inside of a box with a title.
QBoxLayout& AddGroup(QBoxLayout& layout, const QString& title);
// OK, which is the default button, and Cancel.
QDialogButtonBox& AddOkCancel(QDialog& dialog, QBoxLayout& layout);
// As much of a text as a cell can show of it, on one line.
[[nodiscard]] QString MakeCellText(std::u16string_view text);
void SetNames(QWidget& control, const char* objectName, const QString& accessibleName);

// A build number: decimal digits only.
class CBuildNumberEdit final : public QLineEdit
{
public:
    explicit CBuildNumberEdit(QWidget* parent = nullptr);

    void SetBuild(std::uint32_t build) { setText(QString::number(build)); }
    // A number too large for 32 bits is the largest of them, no digits are 0.
    [[nodiscard]] std::uint32_t GetBuild() const;
    [[nodiscard]] QSize sizeHint() const override;
};
