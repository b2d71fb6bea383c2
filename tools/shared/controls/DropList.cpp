#include "DropList.h"

#include "Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace
{
constexpr int kGripHeight = 2 * CTheme::kGrid;
constexpr int kLeastHeight = 3 * CTheme::kRowHeight + kGripHeight;

bool IsMove(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}
} // namespace

// The lower edge. A window without a frame has none that could be dragged.
class CDropList::CGrip final : public QWidget
{
public:
    explicit CGrip(CDropList& list) : QWidget(&list), m_List(list)
    {
        setObjectName(QStringLiteral("grip"));
        setFixedHeight(kGripHeight);
        setCursor(Qt::SizeVerCursor);
    }

private:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), CTheme::Get().GetColor(EThemeColor::Header));
        painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
        const int middle = width() / 2;
        for (const int y : {3, 5})
            painter.drawLine(middle - 8, y, middle + 8, y);
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        m_List.Drag(event->globalPosition().toPoint().y() + kGripHeight / 2);
    }
    void mouseReleaseEvent(QMouseEvent*) override
    {
        if (m_List.m_OnResized)
            m_List.m_OnResized(m_List.m_nHeight);
    }

    CDropList& m_List;
};

// A tip's kind of window: the window system neither activates it nor gives it a frame.
CDropList::CDropList(QWidget& field)
    : QFrame(&field, Qt::ToolTip | Qt::FramelessWindowHint), m_Field(field), m_pList(new QListView)
{
    setObjectName(QStringLiteral("dropList"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    m_pList->setObjectName(QStringLiteral("list"));
    m_pList->setAccessibleName(QStringLiteral("Matches"));
    m_pList->setFrameShape(QFrame::NoFrame);
    m_pList->setFocusPolicy(Qt::NoFocus);
    m_pList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pList->setUniformItemSizes(true);
    connect(m_pList, &QListView::doubleClicked, this, [this] { PickCurrent(); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_pList, 1);
    layout->addWidget(new CGrip(*this));
}

CDropList::~CDropList() = default;

void CDropList::SetModel(QAbstractItemModel* model)
{
    m_pList->setModel(model);
}

void CDropList::SetDropHeight(int height)
{
    m_nHeight = std::max(height, kLeastHeight);
    if (IsOpen())
        Place();
}

void CDropList::Open()
{
    m_pList->setCurrentIndex({});
    m_pList->scrollToTop();
    Place();
    show();
}

void CDropList::Close()
{
    hide();
}

void CDropList::Place()
{
    const QRect screen = m_Field.screen()->availableGeometry();
    const QPoint corner = m_Field.mapToGlobal(QPoint(0, m_Field.height()));
    const int above = corner.y() - m_Field.height() - screen.top();
    const int below = screen.bottom() + 1 - corner.y();
    const bool dropsUp = below < m_nHeight && above > below;
    const int height = std::min(m_nHeight, std::max(dropsUp ? above : below, kLeastHeight));
    const int top = dropsUp ? corner.y() - m_Field.height() - height : corner.y();
    setGeometry(corner.x(), top, m_Field.width(), height);
}

void CDropList::Drag(int bottom)
{
    m_nHeight = std::max(bottom - y(), kLeastHeight);
    resize(width(), m_nHeight);
}

bool CDropList::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type())
    {
    case QEvent::KeyPress:
        return object == &m_Field && HandleKey(static_cast<QKeyEvent*>(event)->key());
    case QEvent::ShortcutOverride:
    {
        // What the list takes must not run a command of the frame.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (object == &m_Field && (IsMove(key) || key == Qt::Key_Escape))
            event->accept();
        return false;
    }
    case QEvent::Wheel:
        // A field that scrolls gets the wheel through its viewport.
        return (object == &m_Field || object->parent() == &m_Field) &&
               QApplication::sendEvent(m_pList->viewport(), event);
    case QEvent::FocusOut:
        if (object == &m_Field)
            Close();
        return false;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        if (object == m_Field.window() || object == &m_Field)
            Place();
        return false;
    case QEvent::Hide:
        if (object == &m_Field)
            Close();
        return false;
    default:
        return false;
    }
}

bool CDropList::HandleKey(int key)
{
    if (IsMove(key))
        return Move(key);
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return PickCurrent();
    if (key != Qt::Key_Escape)
        return false;
    Close();
    return true;
}

bool CDropList::Move(int key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    const QAbstractItemModel* model = m_pList->model();
    // From nothing to the first row, where the view itself would begin at the second.
    if (model != nullptr && model->rowCount() > 0 && !m_pList->currentIndex().isValid())
        m_pList->setCurrentIndex(model->index(0, 0));
    else
        QApplication::sendEvent(m_pList, &press);
    return true;
}

bool CDropList::PickCurrent()
{
    const QModelIndex current = m_pList->currentIndex();
    if (!current.isValid())
        return false;
    const QString text = current.data().toString();
    Close();
    if (m_OnPick)
        m_OnPick(text);
    return true;
}

void CDropList::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    qApp->installEventFilter(this);
    if (m_OnOpenChanged)
        m_OnOpenChanged(true);
}

void CDropList::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    qApp->removeEventFilter(this);
    if (m_OnOpenChanged)
        m_OnOpenChanged(false);
}
