// The editors that lie over one cell: what is typed, and what comes of it.
#include "Unicode.h"
#include "ViewTestList.h"

#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace
{
class ValueEditor : public testing::Test
{
protected:
    // A record with one attribute of the type, and a list that shows it.
    CViewTestList& Show(const std::string& type, const std::string& data, const std::string& fallback,
                        int values = 1)
    {
        m_Test.AddSchema("Unit", "[Attrib.A.0]\nType=" + type + "\nData=" + data + "\nDefault=" + fallback +
                                     "\nValues=" + std::to_string(values) + "\n");
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit");
        EXPECT_TRUE(m_Test.Open());
        m_pList = std::make_unique<CViewTestList>(m_Editor, Attrib());
        return *m_pList;
    }
    [[nodiscard]] CCorvaneType& Attrib() { return m_Test.Attrib("Units/Tank", "A"); }
    [[nodiscard]] std::string Value(std::size_t index = 0) { return ToNarrow(Attrib().GetValue(index)); }
    // Drawing is what a user sees: it must survive every value.
    void Set(std::u16string_view text)
    {
        EXPECT_TRUE(Attrib().SetValue(0, text));
        m_pList->grab();
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
    std::unique_ptr<CViewTestList> m_pList;
};

struct STyped
{
    const char* m_sType;
    const char* m_sData;
    const char* m_sBefore;
    const char* m_sTyped;
    Qt::Key m_End;
    const char* m_sAfter;
};

class TypedValue : public ValueEditor, public testing::WithParamInterface<STyped>
{
};

// Numbers read as the system reads them, inside their limits; what is only looked at stays as it is.
TEST_P(TypedValue, IsReadAsTheTypeReadsIt)
{
    const STyped& row = GetParam();
    CViewTestList& list = Show(row.m_sType, row.m_sData, "True");
    Set(ToWide(row.m_sBefore));
    list.Type(0, QString::fromUtf8(row.m_sTyped), row.m_End);
    EXPECT_EQ(Value(), row.m_sAfter);
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), row.m_sAfter == std::string(row.m_sBefore) ? 0U : 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TypedValue,
    testing::Values(STyped{"Integer", "min=0;max=200", "1", "42", Qt::Key_Return, "42"},
                    STyped{"Integer", "min=0;max=200", "1", "7", Qt::Key_Escape, "1"},
                    STyped{"Integer", "min=0;max=200", "1", "900", Qt::Key_Enter, "200"},
                    STyped{"Integer", "", "1", "abc", Qt::Key_Return, "0"},
                    STyped{"Integer", "", "008", "", Qt::Key_Return, "008"},
                    STyped{"Integer", "", "1", " 12x", Qt::Key_Tab, "12"},
                    STyped{"Float", "max=10", "1.5", "", Qt::Key_Return, "1.5"},
                    STyped{"Float", "max=10", "1.5", "2.25", Qt::Key_Return, "2.250000"},
                    STyped{"Float", "max=10", "1.5", "1e9", Qt::Key_Return, "10.000000"},
                    STyped{"Time", "", "5", "-1500", Qt::Key_Return, "1500"},
                    STyped{"Time", "AllowNegative", "5", "-1500", Qt::Key_Return, "-1500"},
                    STyped{"Text", "max=3", "x", "a\\n b <b>", Qt::Key_Return, "a\\n b <b>"},
                    STyped{"Text", "", "x", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", Qt::Key_Tab,
                           "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"},
                    STyped{"Boolean", "", "true", "", Qt::Key_Return, "true"},
                    STyped{"Boolean", "", "True", "f", Qt::Key_Return, "False"},
                    STyped{"Boolean", "", "True", "f", Qt::Key_Escape, "True"},
                    STyped{"Enum", "True;Idle;Walk;Wander", "IDLE", "wan", Qt::Key_Return, "Wander"},
                    STyped{"Enum", "True;Idle", "gone", "", Qt::Key_Return, "gone"},
                    STyped{"Memo", "", "x", "a\\b", Qt::Key_Return, "a\\\\b"}));

TEST_F(ValueEditor, AddsAValueFromTheDefault)
{
    CViewTestList& list = Show("Integer", "", "7", -1);
    QTest::keyClick(list.Edit(kAddItem)->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_EQ(Value(1), "7");
    EXPECT_EQ(list.m_pView->GetActiveSubItem(), 1);
    EXPECT_EQ(list.GetRect().height(), 80);
    EXPECT_EQ(m_Test.m_Undo.GetUndoLabels().front(), u"&1 [Add]\nA \"7\"");
}

TEST_F(ValueEditor, AMemoTakesLinesAndStopsAtItsLimit)
{
    CViewTestList& list = Show("Memo", "max=5", "", -1);
    const int before = list.GetRect().height();
    EXPECT_GE(before, 20 + 20 + 40);
    QTest::keyClick(list.Edit(kAddItem)->findChild<QPlainTextEdit*>(), Qt::Key_Return);
    EXPECT_EQ(Attrib().GetValueCount(), 1U); // Nothing was typed: nothing is added.
    auto* edit = list.Edit(0)->findChild<QPlainTextEdit*>("MemoValue");
    QTest::keyClicks(edit, "ab");
    QTest::keyClick(edit, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(edit, "cdefg");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(Value(), "ab\\ncd");
    EXPECT_GT(list.GetRect().height(), before);
    EXPECT_EQ(list.m_pView->HitTestItem(list.GetRect(), list.GetRect().bottomLeft() + QPoint(40, -3)),
              kAddItem);
}

TEST_F(ValueEditor, AClickOnAWordTakesIt)
{
    CViewTestList& list = Show("Enum", "Idle;Walk;Run", "Idle");
    auto* words = list.Edit(0)->findChild<QListView*>("EnumValue");
    QTest::mouseClick(words->viewport(), Qt::LeftButton, {},
                      words->visualRect(words->model()->index(2, 0)).center());
    EXPECT_EQ(Value(), "Run");
    EXPECT_EQ(list.m_pView->GetValueDialog(), nullptr);
}

TEST_F(ValueEditor, ATimeIsToldInWordsWhileItIsTyped)
{
    CViewTestList& list = Show("Time", "", "0");
    CCorvaneTypeValueDlg* dialog = list.Edit(0);
    QTest::keyClicks(dialog->findChild<QLineEdit*>("TimeValue"), "3661001");
    EXPECT_EQ(dialog->findChild<QLabel*>("TimeLong")->text(), " 1h : 01m : 01s : 001ms");
}

class LongValue : public ValueEditor, public testing::WithParamInterface<const char*>
{
};

// A megabyte is drawn, opened, typed into and given back without a unit lost.
TEST_P(LongValue, IsEditedInPieces)
{
    CViewTestList& list = Show(GetParam(), "", "x");
    std::u16string text;
    while (text.size() < (1U << 20))
        text += u"seven \U0001F600units";
    Set(text);
    EXPECT_LT(list.GetRect().height(), 2000);
    auto* edit = list.Edit(0)->findChild<QPlainTextEdit*>();
    ASSERT_NE(edit, nullptr);
    EXPECT_LT(edit->document()->begin().length(), 2000);
    edit->moveCursor(QTextCursor::End);
    QTest::keyClick(edit, Qt::Key_X);
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_TRUE(Attrib().GetValue(0) == text + u"x");
}

INSTANTIATE_TEST_SUITE_P(Types, LongValue, testing::Values("Text", "Memo"));
} // namespace
