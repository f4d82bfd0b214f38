#pragma once

#include <QIcon>
#include <QUrl>
#include <QWidget>

class QLabel;

// Content of the About window: icon, name, version, description, the year
// and a link to the maker's website. Fixed at 320 x 320.
class AboutView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSize = 320;
    static constexpr int kIconSize = 100;

    explicit AboutView(QWidget* parent = nullptr);

    static QString makerDomain();
    static QUrl makerURL();
    // The application's window icon, else the bundled program icon, else a printer symbol.
    static QIcon applicationIcon();
    // "© " followed by the current year, e.g. "© 2026".
    static QString copyrightText();

    QLabel* linkLabel() const { return m_link; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void openLink(const QString& link);

    QWidget* m_iconSpace;

    QLabel* m_link;
};
