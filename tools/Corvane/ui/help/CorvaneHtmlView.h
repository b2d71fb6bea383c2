// The help pane: shows a page that was built in memory, in the colours of the theme, also when that changes.
//
// Nothing is ever loaded for a page but our own icons, and nothing in it runs. A link opens in the desktop's
// browser when the user clicks it.
#pragma once

#include <QTextBrowser>

class IServices;

class CCorvaneHtmlView : public QTextBrowser
{
public:
    explicit CCorvaneHtmlView(QWidget* parent);

    // Who opens links; outlives the view. Without it a click does nothing.
    void SetServices(IServices& services) { m_pServices = &services; }
    // The tokens of colours in the page follow the theme from now on.
    void NavigateMemory(const QString& html);
    void Clear();

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;

private:
    void Render();
    void OpenLink(const QUrl& url);

    IServices* m_pServices = nullptr;
    QString m_sPage; // Colours are still tokens.
};
