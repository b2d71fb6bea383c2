// Whether windows come back where they were, and always onto a screen.
#include "WindowPlacement.h"
#include "MemoryFileSystem.h"
#include "Profile.h"
#include "RatioSplitter.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\Test";

struct SPlacementTest : testing::Test
{
    void Write(int left, int top, int right, int bottom)
    {
        m_Profile.SetInteger(kSection, u"Window.Left", left);
        m_Profile.SetInteger(kSection, u"Window.Top", top);
        m_Profile.SetInteger(kSection, u"Window.Right", right);
        m_Profile.SetInteger(kSection, u"Window.Bottom", bottom);
    }
    QRect Restore()
    {
        QWidget window;
        window.setGeometry(1, 2, 333, 222);
        m_Placement.Restore(window);
        return {window.pos(), window.size()};
    }

    CMemoryFileSystem m_Files;
    CProfile m_Profile{m_Files, u"/profile.ini"};
    CWindowPlacement m_Placement{m_Profile, kSection};
};
} // namespace

TEST_F(SPlacementTest, RestoresOntoTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(Restore(), QRect(1, 2, 333, 222)) << "without keys";
    Write(10, 20, 310, 220);
    EXPECT_EQ(Restore(), QRect(10, 20, 300, 200));
    Write(-9000, 50000, -8700, 50200);
    EXPECT_EQ(Restore(), QRect(0, screen.height() - 200, 300, 200));
    Write(-2147483647 - 1, 0, 2147483647, 100);
    EXPECT_EQ(Restore(), QRect(0, 0, screen.width(), 100));
    Write(310, 20, 10, 220);
    EXPECT_EQ(Restore(), QRect(1, 2, 333, 222)) << "an empty place";
}

TEST_F(SPlacementTest, KeepsThePlaceOfAWindowThatCloses)
{
    QWidget window;
    m_Placement.Keep(window);
    window.move(30, 40);
    window.resize(250, 150);
    window.show();
    window.close();
    EXPECT_EQ(Restore(), QRect(30, 40, 250, 150));
    window.showMaximized();
    window.close();
    EXPECT_EQ(m_Profile.GetInteger(kSection, u"Zoomed", 0), 1);
    EXPECT_EQ(m_Profile.GetInteger(kSection, u"Window.Left", 0), 30) << "the normal place stays";
}

TEST_F(SPlacementTest, ASplitterKeepsItsRatioWhenTheWindowGrows)
{
    CRatioSplitter splitter(Qt::Horizontal);
    m_Placement.RestoreSplitter(splitter, u"Splitter", 0.25F);
    splitter.addWidget(new QWidget);
    splitter.addWidget(new QWidget);
    splitter.resize(404, 100);
    splitter.show();
    for (const int width : {404, 804})
    {
        splitter.resize(width, 100);
        EXPECT_EQ(splitter.sizes().at(0), (width - splitter.handleWidth()) / 4);
    }
    m_Placement.StoreSplitter(splitter, u"Splitter");
    EXPECT_EQ(m_Profile.GetString(kSection, u"Splitter", u""), u"0.250000");
}
