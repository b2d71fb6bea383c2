// A path that can be read and copied, with a button that shows its folder.
#pragma once

#include <QWidget>
#include <functional>

class QLineEdit;
class QToolButton;

class CPathEdit final : public QWidget
{
public:
    // `openFolder` is called by the button.
    explicit CPathEdit(std::function<void()> openFolder, QWidget* parent = nullptr);

    // The button is enabled when there is a folder to show. A path that does not fit is told by a tip.
    void SetPath(const QString& path, bool hasFolder);
    [[nodiscard]] QString GetPath() const;

private:
    QLineEdit* m_pPath;
    QToolButton* m_pButton;
};
