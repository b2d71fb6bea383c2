// Name, version and what the editor is built on.
#pragma once

#include <QDialog>

class CAboutDlg final : public QDialog
{
    Q_OBJECT

public:
    explicit CAboutDlg(QWidget* parent);
};
