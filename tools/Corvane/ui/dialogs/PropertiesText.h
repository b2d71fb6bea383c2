// A text of several lines that the user may change: a comment, a help text. It shows and gives texts with CR
// LF as they are stored; one that is too long to be laid out is shown in part and cannot be changed.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

class CPropertiesText final : public QPlainTextEdit
{
public:
    static constexpr std::size_t kMaxText = 32768;

    explicit CPropertiesText(QWidget* parent = nullptr);

    // `whyNot` is the tip of a text that may not be changed; empty for one that may.
    void SetText(std::u16string_view text, const QString& whyNot = {});
    // The user has changed it since SetText.
    [[nodiscard]] bool IsChanged() const;
    [[nodiscard]] std::u16string GetText() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};
