// A record "Units/Tank" with the attributes whose editors are more than one field over a cell: numbers in a
// row, colours, flags, files, effects and string identifiers.
#pragma once

#include "NextDialog.h"
#include "ViewTestList.h"
#include "effect/tests/EffectBytes.h"

#include <QDialog>
#include <QTimer>
#include <QToolButton>

class TypeEditor : public testing::Test
{
protected:
    static constexpr const char* kSchema =
        "[Attrib.Two.0]\nType=Vector2\n[Attrib.Four.0]\nType=Vector4\n"
        "[Attrib.Speed.0]\nType=Range\nData=min=-2;max=10\n"
        "[Attrib.Damage.0]\nType=Range\nData=int;min=0;max=100\n"
        "[Attrib.Tint.0]\nType=Color\nValues=-1\nDefault=255, 9, 8, 7\n"
        "[Attrib.Traits.0]\nType=Flags\nData=Flag1=Flies|Up\\r\\nand away;Flag32=Boss & more|\n"
        "[Attrib.Model.0]\nType=File\nData=Models (*.dds)|*.dds|\n[Attrib.Shot.0]\nType=Sound\n"
        "[Attrib.Burns.0]\nType=Effect\nValues=-1\n[Attrib.Title.0]\nType=StringID\n";
    static constexpr const char* kValues =
        "[Attrib.Two]\nValue.0000=1.0, 2.0\n[Attrib.Four]\nValue.0000=1, 2, 3, 4\n"
        "[Attrib.Speed]\nValue.0000=1, 2\n[Attrib.Damage]\nValue.0000=1.7, 400\n"
        "[Attrib.Tint]\nValue.0000=255, 200, 30, 40\nValue.0001=128,0,90,255\n"
        "[Attrib.Traits]\nValue.0000=0x00000012\n[Attrib.Model]\nValue.0000=models/a.dds\n"
        "[Attrib.Shot]\nValue.0000=shot.wav\n[Attrib.Burns]\nValue.0000=gone\nValue.0001=FIRE\n";

    TypeEditor()
    {
        m_Test.m_Scratch.WriteBytes("Game/Data/VisualFX/a.Fx00p", MakeEffectFile({"Smoke", "Fire", "Fog"}));
        m_Test.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n"
                                      "StringDatabase=Text/Strings.mo\n");
        std::filesystem::create_directories(m_Test.GetPath("Text"));
        std::filesystem::copy_file(GLOSSAR_CATALOGUE, m_Test.GetPath("Text/Strings.mo"));
        m_Test.AddSchema("Unit", kSchema);
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit", kValues);
        EXPECT_TRUE(m_Test.Open());
        m_Test.m_Services.m_bServe = true;
    }
    [[nodiscard]] std::string Value(const char* name, std::size_t index = 0)
    {
        return m_Test.Value("Units/Tank", name, 0, index);
    }
    CViewTestList& Show(const char* name)
    {
        m_pList = std::make_unique<CViewTestList>(m_Editor, m_Test.Attrib("Units/Tank", name));
        return *m_pList;
    }
    [[nodiscard]] CCorvaneTypeValueDlg& Editor() { return *m_pList->m_pView->GetValueDialog(); }
    void Press(const char* button)
    {
        QTest::mouseClick(Editor().findChild<QToolButton*>(button), Qt::LeftButton);
    }
    static void Type(const char* text, Qt::Key end)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
        QTest::keyClick(QApplication::focusWidget(), end);
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
    std::unique_ptr<CViewTestList> m_pList;
};
