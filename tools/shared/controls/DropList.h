// A list that drops below a field while the user types in it. The field keeps the focus: Up, Down, Page Up,
// Page Down and the wheel move in the list, Return picks what is selected, Escape closes, and any other key
// is the field's. The user may drag the lower edge.
#pragma once

#include <QFrame>
#include <functional>

class QAbstractItemModel;
class QListView;

class CDropList final : public QFrame
{
public:
    // A window that belongs to `field`, which owns it.
    explicit CDropList(QWidget& field);
    ~CDropList() override;

    // Not owned; it outlives the list.
    void SetModel(QAbstractItemModel* model);
    // Logical pixels of the whole list; the caller keeps it. The width is that of the field, at least.
    void SetDropHeight(int height);
    [[nodiscard]] int GetDropHeight() const { return m_nHeight; }

    // Below the field, or above it where there is no room below. Nothing is selected at first.
    void Open();
    void Close();
    [[nodiscard]] bool IsOpen() const { return isVisible(); }

    std::function<void(const QString&)> m_OnPick; // By Return or a double click; the list is closed then.
    std::function<void(int height)> m_OnResized;  // The user dragged the edge.
    std::function<void(bool open)> m_OnOpenChanged;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class CGrip;

    [[nodiscard]] bool HandleKey(int key);
    bool Move(int key);
    bool PickCurrent();
    void Place();
    void Drag(int bottom);

    QWidget& m_Field;
    QListView* m_pList;
    int m_nHeight = 200;
};
