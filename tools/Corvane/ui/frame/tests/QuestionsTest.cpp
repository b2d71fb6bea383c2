// Message boxes, and what gets through to the windows while the core works.
#include "NextDialog.h"
#include "ProgressDlg.h"
#include "QtText.h"
#include "QuestionDlg.h"
#include "UiQuestions.h"
#include "host/ExternalChange.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{
QString GetButtons(const QDialog& box)
{
    QString all;
    for (const QPushButton* button : box.findChildren<QPushButton*>())
        all += (button->isDefault() ? u'*' + button->text() : button->text()) + u' ';
    return all;
}
} // namespace

TEST(Questions, ButtonsDefaultAndEscape)
{
    struct SCase
    {
        EButtons m_Buttons;
        const char* m_sButtons;
        EAnswer m_Escape;
        EAnswer m_Last;
    };
    CUiQuestions questions;
    for (const SCase& entry :
         {SCase{EButtons::Ok, "*OK ", EAnswer::Ok, EAnswer::Ok},
          {EButtons::OkCancel, "OK *Cancel ", EAnswer::Cancel, EAnswer::Cancel},
          {EButtons::YesNo, "&Yes *&No ", EAnswer::No, EAnswer::No},
          {EButtons::YesNoCancel, "&Yes &No *Cancel ", EAnswer::Cancel, EAnswer::Cancel},
          {EButtons::AbortRetryIgnore, "*&Abort &Retry &Ignore ", EAnswer::Abort, EAnswer::Ignore}})
    {
        const CQuestion question = MakeQuestion(u"Title", u"Text", entry.m_Buttons, EIcon::Question);
        QString buttons;
        const CNextDialog user(
            [&](QDialog& box)
            {
                buttons = GetButtons(box);
                QTest::keyClick(&box, Qt::Key_Escape);
            });
        EXPECT_EQ(questions.Ask(question), entry.m_Escape);
        EXPECT_EQ(buttons, QString::fromLatin1(entry.m_sButtons));
        const CNextDialog other([](QDialog& box) { box.findChildren<QPushButton*>().back()->click(); });
        EXPECT_EQ(questions.Ask(question), entry.m_Last);
    }
}

TEST(Questions, AQuestionOfARefreshAndAnEndlessText)
{
    CUiQuestions questions;
    const CNextDialog user(
        [](QDialog& box)
        {
            EXPECT_EQ(GetButtons(box), QStringLiteral("Reload From File *Keep Memory Changes "));
            EXPECT_EQ(box.findChild<QLineEdit*>(QStringLiteral("file"))->text(),
                      QStringLiteral("/a/b.record"));
            EXPECT_TRUE(box.findChild<QLabel*>(QStringLiteral("warning"))->text().startsWith(u"WARNING: "));
            box.findChild<QPushButton*>()->click();
        });
    EXPECT_EQ(questions.Ask(MakeExternalModificationQuestion(u"/a/b.record")), EAnswer::Yes);
    const CNextDialog reader(
        [](QDialog& box)
        {
            EXPECT_LE(box.findChild<QPlainTextEdit*>()->toPlainText().size(), 100001);
            EXPECT_LE(box.sizeHint().height(), 600);
            box.accept();
        });
    questions.Tell(u"Title", std::u16string(1000000, u'x'));
}

// The user's hands are on the windows while the core works on the same thread.
TEST(Questions, OnlyTheProgressBoxGetsInputWhileTheCoreWorks)
{
    CUiQuestions questions;
    QPushButton other(QStringLiteral("Other"));
    other.show();
    int clicks = 0;
    QObject::connect(&other, &QPushButton::clicked, &other, [&] { ++clicks; });
    const auto work = [&](const std::function<void()>& user)
    {
        const std::unique_ptr<IProgress> progress = questions.CreateProgress(u"Work");
        bool done = false;
        QTimer::singleShot(350, &other,
                           [&]
                           {
                               user();
                               done = true;
                           });
        while (!done)
            static_cast<void>(progress->Pump());
        return progress->Pump();
    };
    const auto getBox = []
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QStringLiteral("CProgressDlg") && window->isVisible())
                return window;
        return static_cast<QWidget*>(nullptr);
    };
    EXPECT_FALSE(work(
        [&]
        {
            EXPECT_TRUE(questions.GetPump().IsWorking());
            EXPECT_NE(getBox(), nullptr) << "long work shows its box";
            QTest::mouseClick(&other, Qt::LeftButton);
            QTest::keyClick(&other, Qt::Key_Space);
        }));
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(work([&] { QTest::mouseClick(getBox()->findChild<QPushButton*>(), Qt::LeftButton); }));
    EXPECT_TRUE(work([&] { QTest::keyClick(getBox(), Qt::Key_Escape); }));
    EXPECT_TRUE(
        work([] { QCoreApplication::sendEvent(qApp, std::make_unique<QEvent>(QEvent::Quit).get()); }));
    // A question in the middle has a loop and input of its own.
    EXPECT_FALSE(work(
        [&]
        {
            const CNextDialog user([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
            questions.Tell(u"Title", u"Text");
        }));
    EXPECT_FALSE(questions.GetPump().IsWorking());
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}
