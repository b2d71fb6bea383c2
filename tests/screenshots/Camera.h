// Takes pictures of windows that nobody sees.
#pragma once

#include <QString>
#include <functional>

class QWidget;

class CCamera
{
public:
    // Pictures become <directory>/<name>.png.
    explicit CCamera(const QString& directory) : m_sDirectory(directory) {}

    // Shows the window, lets everything settle and takes the picture. The window stays as it is.
    void Take(const QString& name, QWidget& window);
    // Takes the modal window that `open` shows, with all that `prepare` does to it, and closes it.
    void TakeModal(const QString& name, const std::function<void()>& open,
                   const std::function<void(QWidget&)>& prepare = {});
    // Takes `frame` with the editor that `open` begins in it, or the modal window that it shows instead.
    void TakeEditor(const QString& name, QWidget& frame, const std::function<void()>& open);
    // How many pictures could not be taken.
    [[nodiscard]] int GetFailures() const { return m_nFailures; }

private:
    [[nodiscard]] bool RunAndTake(const QString& name, const std::function<void()>& open,
                                  const std::function<void(QWidget&)>& prepare);
    void Save(const QString& name, QWidget& window);

    QString m_sDirectory;
    int m_nFailures = 0;
};
