// A page of the properties sheet: a form of fields about one object, most of them to be read and copied only.
//
// A page refers to its object until Forget; after that nothing of it may be asked.
#pragma once

#include "SheetPage.h"

#include <functional>
#include <string>
#include <string_view>

class CCorvaneMgr;
class CCorvaneRecord;
class CHtmlCtrl;
class CPathEdit;
class CPropertiesText;
class IFileSystem;
class QFormLayout;
class QLineEdit;

// What a page needs of the sheet around it.
struct SPropertiesContext
{
    CCorvaneMgr& m_Manager;
    // Ends the sheet, as OK does, and opens the record.
    std::function<void(CCorvaneRecord&)> m_OpenRecord;
};

// A path as the pages show it: marked when there is no such file, and "-- not saved --" without one.
[[nodiscard]] std::u16string MakePathText(IFileSystem& files, std::u16string_view path);
inline constexpr std::u16string_view kUnknownProperty = u"[Unknown]";

class CPropertiesBaseDlg : public CSheetPage
{
public:
    // The object has gone or is about to.
    virtual void Forget() = 0;

protected:
    CPropertiesBaseDlg(const SPropertiesContext& context, const char* objectName);

    // Fields in the order of the form. Labels have their '&'.
    QLineEdit& AddText(const char* objectName, const QString& label);
    CPathEdit& AddPath(const QString& label);
    CHtmlCtrl& AddHelp(const QString& label);
    CPropertiesText& AddEdit(const char* objectName, const QString& label);
    void AddField(const char* objectName, const QString& label, QWidget* field);
    // At the end, without a label.
    void AddWide(QWidget* field);

    static void SetText(QLineEdit& field, std::u16string_view text);
    void SetPath(CPathEdit& field, std::u16string_view path);

    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Context.m_Manager; }
    void OpenRecord(CCorvaneRecord& record) const { m_Context.m_OpenRecord(record); }

private:
    void ShowFolder() const;

    SPropertiesContext m_Context;
    QFormLayout* m_pForm;
    std::u16string m_sPath; // Of the page's path field.
};
