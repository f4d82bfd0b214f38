#include "app/MessageBoxUpdateDialogs.h"

#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kCheckingText = u"Controleren op updates…";

// Whether the first of `buttons` was pressed; a second one is the escape button.
bool ask(QWidget* parent, QMessageBox::Icon icon, const QString& text, const QString& details,
         Qt::TextFormat format, const QStringList& buttons = {u"OK"_s})
{
    QMessageBox box(parent);
    box.setIcon(icon);
    box.setText(text);
    box.setInformativeText(details);
    // setTextFormat reaches only the main text; the informative label would
    // otherwise guess the format from its content.
    box.setTextFormat(format);
    if (auto* label = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s))
        label->setTextFormat(format);
    QPushButton* accept = box.addButton(buttons.first(), QMessageBox::AcceptRole);
    box.setDefaultButton(accept);
    box.setEscapeButton(buttons.size() > 1 ? box.addButton(buttons.last(), QMessageBox::RejectRole)
                                           : accept);
    box.exec();
    return box.clickedButton() == accept;
}

} // namespace

MessageBoxUpdateDialogs::MessageBoxUpdateDialogs(QWidget* parent) : m_parent(parent) {}

MessageBoxUpdateDialogs::~MessageBoxUpdateDialogs()
{
    delete m_checking.data();
}

// Error descriptions and versions are shown as they are, never as markup.
void MessageBoxUpdateDialogs::showUpToDate(const QString& currentVersion)
{
    ask(m_parent, QMessageBox::Information, u"Stampix is bijgewerkt"_s,
        u"Je gebruikt versie %1, de nieuwste versie van Stampix."_s.arg(currentVersion),
        Qt::PlainText);
}

void MessageBoxUpdateDialogs::showUpdateAvailable(const AppcastItem& item,
                                                  const QString& currentVersion)
{
    QString details = u"Stampix %1 is beschikbaar; je gebruikt versie %2."_s.arg(
        item.displayVersion().toHtmlEscaped(), currentVersion.toHtmlEscaped());
    if (item.releaseNotesURL.isValid()) {
        details += u"<br><br><a href=\"%1\">Bekijk wat er nieuw is</a>"_s.arg(
            item.releaseNotesURL.toString(QUrl::FullyEncoded).toHtmlEscaped());
    }
    if (ask(m_parent, QMessageBox::Information,
            u"Er is een nieuwe versie van Stampix beschikbaar"_s, details, Qt::RichText,
            {u"Downloaden"_s, u"Later"_s}))
        QDesktopServices::openUrl(item.downloadURL);
}

void MessageBoxUpdateDialogs::showFailure(const QString& description)
{
    ask(m_parent, QMessageBox::Critical, u"Controleren op updates mislukt"_s,
        u"Kon niet controleren op updates: "_s + description, Qt::PlainText);
}

void MessageBoxUpdateDialogs::showNotConfigured()
{
    ask(m_parent, QMessageBox::Information, u"Updates niet beschikbaar"_s,
        u"Controleren op updates is niet ingesteld voor deze build."_s, Qt::PlainText);
}

void MessageBoxUpdateDialogs::showChecking(std::function<void()> cancel)
{
    if (!m_checking) {
        // No range: a busy bar, since the feed gives no progress worth showing.
        m_checking = new QProgressDialog(kCheckingText.toString(), u"Annuleren"_s, 0, 0, m_parent);
        // The program's name, which the untitled message boxes show too.
        m_checking->setWindowTitle(u"Stampix"_s);
        m_checking->setAccessibleName(kCheckingText.toString());
        m_checking->setModal(false);
        // The button, Escape and closing the window all cancel.
        QObject::connect(m_checking, &QProgressDialog::canceled, m_checking, std::move(cancel));
    }
    m_checking->setWindowState(m_checking->windowState() & ~Qt::WindowMinimized);
    m_checking->show();
    m_checking->raise();
    m_checking->activateWindow();
}

void MessageBoxUpdateDialogs::closeChecking()
{
    // Not close(), which would report a cancel; later, since this may run
    // inside the window's own cancel signal.
    if (m_checking) {
        m_checking->hide();
        m_checking->deleteLater();
        m_checking = nullptr;
    }
}
