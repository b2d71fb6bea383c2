#include "CorvaneHtmlView.h"
#include "CorvaneType.h"
#include "HelpContent.h"
#include "HelpMarkup.h"
#include "HelpPage.h"
#include "HtmlCtrl.h"
#include "QtText.h"
#include "TestDatabase.h"
#include "Theme.h"
#include "Unicode.h"

#include <QAbstractTextDocumentLayout>
#include <QTest>
#include <QTextTable>
#include <gtest/gtest.h>

namespace
{
class HtmlView : public testing::Test
{
protected:
    HtmlView()
    {
        m_View.SetServices(m_Services);
        m_View.resize(600, 400);
        m_View.show();
    }

    void ShowHelp(std::u16string_view help)
    {
        m_View.NavigateMemory(ToQString(BuildHelpPage({u"Name", help, u"", u"", u""})));
    }
    [[nodiscard]] std::string GetText() const { return m_View.toPlainText().toStdString(); }

    CManualServices m_Services;
    CCorvaneHtmlView m_View{nullptr};
};
} // namespace

TEST_F(HtmlView, AnAddressIsABoxWhoseLinkOpensOnAClick)
{
    ShowHelp(u"https://example.org/a?b=c");
    const QTextTable* box = nullptr;
    for (const QTextFrame* frame : m_View.document()->rootFrame()->childFrames().first()->childFrames())
        box = qobject_cast<const QTextTable*>(frame);
    ASSERT_NE(box, nullptr);
    EXPECT_NEAR(m_View.document()->documentLayout()->frameBoundingRect(const_cast<QTextTable*>(box)).height(),
                300, 4);
    EXPECT_TRUE(m_Services.m_Calls.empty());
    QTextCursor cursor = m_View.document()->find(QStringLiteral("example"));
    QTest::mouseClick(m_View.viewport(), Qt::LeftButton, {}, m_View.cursorRect(cursor).center());
    ASSERT_EQ(m_Services.m_Calls.size(), 1u);
    EXPECT_EQ(ToNarrow(m_Services.m_Calls[0]), "link https://example.org/a?b=c");
    m_View.Clear();
    EXPECT_EQ(GetText(), "");
}

TEST_F(HtmlView, LoadsNothingAndFollowsTheTheme)
{
    ShowHelp(u"text");
    for (const char* source : {"file:///etc/passwd", "http://a/b.png", "icon:open", ":/icons/open.svg"})
        for (const auto type : {QTextDocument::ImageResource, QTextDocument::StyleSheetResource})
            EXPECT_EQ(m_View.document()->resource(type, QUrl(QString::fromLatin1(source))), QByteArray(""))
                << source;
    const auto getHeader = [this]
    {
        const auto* table = qobject_cast<QTextTable*>(m_View.document()->rootFrame()->childFrames().value(0));
        return table ? table->cellAt(0, 0).format().background().color() : QColor();
    };
    CTheme::Get().Install();
    for (const CTheme::EScheme scheme : {CTheme::EScheme::Light, CTheme::EScheme::Dark})
    {
        CTheme::Get().SetScheme(scheme);
        QCoreApplication::processEvents();
        EXPECT_EQ(getHeader(), CTheme::Get().GetColor(EThemeColor::Header));
    }
    EXPECT_NE(GetText().find("text"), std::string::npos);
}

// The layout of texts of a megabyte is bounded by what of them is shown.
TEST_F(HtmlView, AnyTextIsCutToWhatCanBeShown)
{
    for (const std::u16string_view piece : {u"x", u"<table><tr><td>", u"<td>", u"<ul><li>", u"<b>",
                                            u"<a href=\"", u"<%PUTICONERROR%>", u"\u0301"})
    {
        std::u16string text;
        while (text.size() < (1u << 20))
            text.append(piece);
        ShowHelp(text);
        EXPECT_LE(GetText().size(), 4 * kMaxHelpText + 100) << ToNarrow(piece);
        EXPECT_NE(GetText().find("more characters"), std::string::npos) << ToNarrow(piece);
    }
}

TEST_F(HtmlView, PagesOfRecordsAttributesAndStructs)
{
    CTestDatabase database;
    database.Write("Schemas/Row.struct",
                   "[Attrib.Item.0]\nType=Text\nHelp=what\n[Attrib.Count.0]\nType=Integer\n");
    database.AddSchema("Thing", "[Attrib.Name.0]\nType=Text\nHelp=its <b>name</b>\n"
                                "[Attrib.Rows.0]\nType=Struct\nData=Row.struct\nHelp=rows\n");
    database.AddCategory("All", "Thing");
    database.AddRecord("All/<b>One", "Thing", "[Attrib.Name]\nComment=a<b\n", "Comment=of record\n");
    ASSERT_TRUE(database.Open());
    const auto show = [this](const std::u16string& page)
    {
        m_View.NavigateMemory(ToQString(page));
        QString text = m_View.toPlainText();
        text.remove(QChar(0x2068)).remove(QChar(0x2069)).replace(QChar(0xA0), u' ');
        return text.simplified().toStdString();
    };
    EXPECT_EQ(show(BuildRecordHelp(database.Record("All/<b>One"))), "<b>One Record Comment of record");
    EXPECT_EQ(show(BuildAttributeHelp(database.Attrib("All/<b>One", "Name"))),
              "Name (Text) Help its name Comment a<b Record Comment of record");
    CCorvaneType& rows = database.Attrib("All/<b>One", "Rows");
    EXPECT_EQ(show(BuildAttributeHelp(rows)),
              "Rows (Struct) Help rows Item Help what Count Record Comment of record");
    auto* count = dynamic_cast<CCorvaneType*>(rows.GetChildAttributeAt(0, 1));
    ASSERT_TRUE(count != nullptr && count->EditComment(u"how many"));
    EXPECT_EQ(show(BuildAttributeHelp(rows, count)),
              "Rows (Struct) Help rows Count (Integer) Comment how many Record Comment of record");
    CHtmlCtrl control(nullptr);
    control.SetHelp(u"<i>some</i> help");
    EXPECT_EQ(control.toPlainText().toStdString(), "some help");
}
