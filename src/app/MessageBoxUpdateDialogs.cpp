#include "app/MessageBoxUpdateDialogs.h"

#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// QMessageBox::setTextFormat reaches only the main text; the informative
// label would otherwise guess the format from its content.
void setDetailsFormat(QMessageBox& box, Qt::TextFormat format)
{
    box.setTextFormat(format);
    if (auto* details = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s))
        details->setTextFormat(format);
}

} // namespace

MessageBoxUpdateDialogs::MessageBoxUpdateDialogs(QWidget* parent) : m_parent(parent) {}

void MessageBoxUpdateDialogs::showUpToDate(const QString& currentVersion)
{
    showPlain(QMessageBox::Information, u"Stampix is bijgewerkt"_s,
              u"Je gebruikt versie %1, de nieuwste versie van Stampix."_s.arg(currentVersion));
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

    QMessageBox box(m_parent);
    box.setIcon(QMessageBox::Information);
    box.setText(u"Er is een nieuwe versie van Stampix beschikbaar"_s);
    box.setInformativeText(details);
    setDetailsFormat(box, Qt::RichText);
    QPushButton* download = box.addButton(u"Downloaden"_s, QMessageBox::AcceptRole);
    QPushButton* later = box.addButton(u"Later"_s, QMessageBox::RejectRole);
    box.setDefaultButton(download);
    box.setEscapeButton(later);
    box.exec();
    if (box.clickedButton() == download)
        QDesktopServices::openUrl(item.downloadURL);
}

void MessageBoxUpdateDialogs::showFailure(const QString& description)
{
    showPlain(QMessageBox::Critical, u"Controleren op updates mislukt"_s,
              u"Kon niet controleren op updates: "_s + description);
}

void MessageBoxUpdateDialogs::showNotConfigured()
{
    showPlain(QMessageBox::Information, u"Updates niet beschikbaar"_s,
              u"Controleren op updates is niet ingesteld voor deze build."_s);
}

void MessageBoxUpdateDialogs::showPlain(QMessageBox::Icon icon, const QString& text,
                                        const QString& informativeText)
{
    QMessageBox box(m_parent);
    box.setIcon(icon);
    box.setText(text);
    box.setInformativeText(informativeText);
    // Error descriptions are shown as they are, never as markup.
    setDetailsFormat(box, Qt::PlainText);
    QPushButton* button = box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
    box.exec();
}
