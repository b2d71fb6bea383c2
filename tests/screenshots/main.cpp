// Renders the main window, a record's window and every dialog over a database. Theme and scale are those of
// the environment (CORVANE_THEME, QT_SCALE_FACTOR); see scripts/screenshots.sh. Usage: corvane-screenshots
// DIRECTORY ROOT-FILE
#include "AboutDlg.h"
#include "BuildDlg.h"
#include "Camera.h"
#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneColorDialog.h"
#include "CorvaneListView.h"
#include "CorvaneListViewList.h"
#include "CorvaneTreeView.h"
#include "DeferDeleteAttribDlg.h"
#include "DeferDeprecatedAttribDlg.h"
#include "DeferredAttribDlg.h"
#include "DeferredModifiedDlg.h"
#include "EditorSession.h"
#include "InsertCategoryDlg.h"
#include "MainFrame.h"
#include "OverrideDlg.h"
#include "ProgressDlg.h"
#include "PropertiesSheet.h"
#include "QtFileDialogs.h"
#include "QtText.h"
#include "QuestionDlg.h"
#include "RecordCopyDlg.h"
#include "RecordFrame.h"
#include "RegisterTypeViews.h"
#include "SettingsSheet.h"
#include "TestBuildDlg.h"
#include "Theme.h"
#include "TypeViewRegistry.h"
#include "ValidateCore.h"
#include "ValidateDlg.h"
#include "WarningAdvancedSettingsDlg.h"
#include "WindowPump.h"
#include "host/ExternalChange.h"
#include "host/RecordingQuestions.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <cstdio>
#include <set>
#include <string>

namespace
{
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

// What all pictures are taken of.
struct SScene
{
    CEditorSession& m_Session;
    CMainFrame& m_Frame;
    CCamera& m_Camera;

    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Session.GetManager(); }
    [[nodiscard]] CCorvaneRecord& GetRecord(std::u16string_view path) const
    {
        CCorvaneRecord* record = m_Session.GetManager().FindRecord(path, nullptr);
        if (record == nullptr)
            qFatal("%s is not in the database", qPrintable(ToQString(path)));
        return *record;
    }
};

template <class Dialog, class... Arguments>
void TakeDialog(SScene& scene, const char* name, Arguments&&... arguments)
{
    Dialog dialog(std::forward<Arguments>(arguments)..., &scene.m_Frame);
    scene.m_Camera.Take(QString::fromLatin1(name), dialog);
}

// A record with many types, one that inherits, and one with rows.
constexpr std::u16string_view kMainRecord = u"Actors/Enemies/Hollow/Frost Runner";
constexpr std::u16string_view kOtherRecord = u"Actors/Survivors/Base Survivor";

void TakeMain(SScene& scene, const char* name)
{
    CMainFrame& frame = scene.m_Frame;
    CCorvaneRecord& record = scene.GetRecord(kMainRecord);
    frame.ShowRecord(&record, true);
    static_cast<void>(frame.GetTreeView().SelectRecord(record));
    static_cast<void>(frame.GetListView().SelectAttribute(
        *record.GetAttributeList()[record.GetAttributeList().size() / 3], 0));
    scene.m_Camera.Take(QString::fromLatin1(name), frame);
}

void TakeRecordFrame(SScene& scene)
{
    CMainFrame& frame = scene.m_Frame;
    frame.OpenRecordFrame(&scene.GetRecord(kOtherRecord), true);
    for (CRecordFrame* window : frame.GetRecordFrames())
    {
        scene.m_Camera.Take(QStringLiteral("record-frame"), *window);
        window->close();
    }
}

// The editor in place of one attribute of each type that the record has.
void TakeEditors(SScene& scene)
{
    CMainFrame& frame = scene.m_Frame;
    std::set<std::u16string> seen;
    for (const std::u16string_view path : {kMainRecord, kOtherRecord})
    {
        CCorvaneRecord& record = scene.GetRecord(path);
        frame.ShowRecord(&record, true);
        frame.activateWindow(); // An editor without it takes the value and goes.
        frame.ActivateList();
        for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
        {
            auto& type = static_cast<CCorvaneType&>(*attrib);
            const std::u16string word(type.GetTypeName());
            if (type.GetInherit() || !seen.insert(word).second)
                continue;
            static_cast<void>(frame.GetListView().SelectAttribute(type, 0));
            scene.m_Camera.TakeEditor(QStringLiteral("editor-") + ToQString(word).toLower(), frame,
                                      [&] { frame.GetCommandSet().Run(ID_EDIT); });
            frame.GetListView().EndEdit(false);
        }
    }
}

void TakeExpert(SScene& scene)
{
    scene.GetManager().ToggleExpertMode();
    scene.GetManager().SetActiveBuild(10);
    scene.GetManager().Notify(
        CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
    TakeMain(scene, "main-expert");
}

void TakeFilter(SScene& scene)
{
    QLineEdit& filter = scene.m_Frame.GetTreeView().GetFilterEdit();
    filter.setText(QStringLiteral("run"));
    QTest::qWait(400);
    scene.m_Camera.Take(QStringLiteral("main-filter"), scene.m_Frame);
    filter.clear();
    QTest::qWait(400);
}

void TakeSheets(SScene& scene)
{
    for (int page = 0; page < 3; ++page)
        scene.m_Camera.TakeModal(
            QStringLiteral("settings-%1").arg(page + 1), [&] { ShowSettings(scene.m_Frame); },
            [&](QWidget& sheet) { sheet.findChild<QTabWidget*>()->setCurrentIndex(page); });
    CCorvaneRecord& record = scene.GetRecord(kMainRecord);
    scene.m_Camera.TakeModal(QStringLiteral("properties-record"),
                             [&] { ShowProperties(scene.m_Frame, record); });
    scene.m_Camera.TakeModal(
        QStringLiteral("properties-source-control"), [&] { ShowProperties(scene.m_Frame, record); },
        [](QWidget& sheet)
        {
            auto* tabs = sheet.findChild<QTabWidget*>();
            tabs->setCurrentIndex(tabs->count() - 1);
        });
    scene.m_Camera.TakeModal(QStringLiteral("properties-category"),
                             [&] { ShowProperties(scene.m_Frame, *record.GetCategory()); });
    scene.m_Camera.TakeModal(QStringLiteral("properties-schema"),
                             [&] { ShowProperties(scene.m_Frame, *record.GetSchema()); });
    scene.m_Camera.TakeModal(
        QStringLiteral("properties-attribute"), [&]
        { ShowProperties(scene.m_Frame, static_cast<CCorvaneType&>(*record.GetAttributeList().front())); });
}

void TakeBuildDialogs(SScene& scene)
{
    TakeDialog<CBuildDlg>(scene, "compile", scene.m_Frame, 0U, std::int64_t{-1},
                          scene.GetManager().GetRootFile().m_sBuild);
    {
        // The larger form does not ask whether it may be shown.
        scene.GetManager().GetContext().m_Profile.SetInteger(u"General", u"Warning.Advanced.Settings", 1);
        CBuildDlg dialog(scene.m_Frame, 0, -1, scene.GetManager().GetRootFile().m_sBuild, &scene.m_Frame);
        dialog.show();
        if (auto* more = dialog.findChild<QPushButton*>(QStringLiteral("Advanced")))
            more->click();
        scene.m_Camera.Take(QStringLiteral("compile-advanced"), dialog);
    }
    TakeDialog<CTestBuildDlg>(scene, "test-build", u"C:/Outpost/Game/Outpost.Gamdb00p");
    TakeDialog<COverrideDlg>(scene, "override-output", scene.m_Frame);
    CProgressDlg progress(QStringLiteral("Compile"), &scene.m_Frame);
    progress.SetText(QStringLiteral("Saving records..."));
    progress.SetPercent(40);
    scene.m_Camera.Take(QStringLiteral("progress"), progress);
}

void TakeAttributeDialogs(SScene& scene)
{
    TakeDialog<CDeferDeleteAttribDlg>(scene, "defer-delete", 12U);
    TakeDialog<CDeferDeprecatedAttribDlg>(scene, "defer-deprecate", 12U);
    TakeDialog<CDeferredModifiedDlg>(scene, "modified-attributes", scene.m_Frame, 20U);
    CDeferredAttribDlg deferred(scene.m_Frame, &scene.m_Frame);
    deferred.show();
    if (auto* build = deferred.findChild<QComboBox*>(QStringLiteral("Build")))
        build->setEditText(QStringLiteral("20"));
    deferred.Find();
    scene.m_Camera.Take(QStringLiteral("deferred-attributes"), deferred);
}

// The sample has no findings: its links are broken for the picture.
void TakeValidate(SScene& scene)
{
    for (const CRef<CCorvaneAttrib>& attrib : scene.GetRecord(kOtherRecord).GetAttributeList())
    {
        if (static_cast<CCorvaneType&>(*attrib).GetTypeName() == u"RecordLink")
            static_cast<void>(attrib->SetValue(0, u"Items/Weapons/Lost Sword"));
    }
    CValidateDlg validate(scene.m_Frame, &scene.m_Frame);
    validate.SetBuild(0);
    validate.Scan();
    scene.m_Camera.Take(QStringLiteral("validate"), validate);
}

void TakeTreeDialogs(SScene& scene)
{
    TakeDialog<CInsertCategoryDlg>(scene, "insert-category", scene.GetManager());
    TakeDialog<CRecordCopyDlg>(scene, "copy-record");
    TakeDialog<CWarningAdvancedSettingsDlg>(scene, "warning-advanced",
                                            scene.GetManager().GetContext().m_Profile);
    TakeValidate(scene);
}

void TakeBoxes(SScene& scene)
{
    TakeDialog<CAboutDlg>(scene, "about");
    TakeDialog<CQuestionDlg>(scene, "question",
                             MakeQuestion(u"Save Changes", u"Save changes to this database?",
                                          EButtons::YesNoCancel, EIcon::Question));
    TakeDialog<CQuestionDlg>(scene, "external-change",
                             MakeExternalModificationQuestion(scene.GetRecord(kMainRecord).GetFile()));
    CCorvaneColorDialog color(scene.GetManager().GetContext().m_Profile, 0xC0307AE6U, &scene.m_Frame);
    scene.m_Camera.Take(QStringLiteral("color"), color);
}

int TakeAll(const QString& directory, const QString& root)
{
    CRecordingQuestions questions;
    CEditorSession session(questions);
    CWindowPump pump;
    CQtFileDialogs dialogs(session.GetContext().m_Files);
    CMainFrame frame(session, pump, dialogs);
    CCamera camera(directory);
    SScene scene{session, frame, camera};
    frame.resize(1100, 720);
    camera.Take(QStringLiteral("empty"), frame);
    frame.OpenDatabase(ToText(root));
    if (!session.GetManager().IsOpen())
    {
        std::fprintf(stderr, "%s could not be opened\n", qPrintable(root));
        return kFailed;
    }
    TakeMain(scene, "main");
    TakeFilter(scene);
    TakeRecordFrame(scene);
    TakeEditors(scene);
    TakeSheets(scene);
    TakeBuildDialogs(scene);
    TakeTreeDialogs(scene);
    TakeBoxes(scene);
    TakeExpert(scene);
    TakeAttributeDialogs(scene);
    return camera.GetFailures() == 0 ? 0 : kFailed;
}
} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3)
    {
        std::fprintf(stderr, "Usage: corvane-screenshots DIRECTORY ROOT-FILE\n");
        return kWrongUse;
    }
    CTheme::Get().Install();
    RegisterTypeViews(GetTypeViews());
    return TakeAll(arguments[1], arguments[2]);
}
