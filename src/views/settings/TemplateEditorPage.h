#pragma once

#include "labelrender/LabelRenderer.h"
#include "views/settings/SettingsEditorPage.h"

#include <QStringList>
#include <QTimer>
#include <chrono>

class InfoBox;
class LabelPreviewView;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class QVBoxLayout;

// Edits one label template: name, printer, ZPL text with live validation,
// the placeholder chips that copy to the clipboard, a test print, the label
// drawn with the sample values, and delete.
class TemplateEditorPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    // How long the preview waits after a keystroke before it draws again.
    static constexpr std::chrono::milliseconds kPreviewDelay{150};

    explicit TemplateEditorPage(SettingsViewModel& model, QWidget* parent = nullptr);

    void setRecord(const QUuid& id) override;
    QLineEdit* nameField() const { return m_name; }
    QComboBox* printerChoice() const { return m_printerChoice; }
    QWidget* noPrintersRow() const { return m_noPrinters; }
    QPushButton* addPrinterButton() const { return m_addPrinter; }
    InfoBox* printerHint() const { return m_printerHint; }
    const QList<QToolButton*>& chips() const { return m_chips; }
    InfoBox* copyHint() const { return m_copyHint; }
    QWidget* copyFeedback() const { return m_copyFeedback; }
    QLabel* copyFeedbackLabel() const { return m_copyFeedbackText; }
    QPlainTextEdit* zplEditor() const { return m_zpl; }
    QPushButton* testButton() const { return m_testButton; }
    QWidget* testingRow() const { return m_testingRow; }
    QWidget* resultRow() const { return m_resultRow; }
    QLabel* resultLabel() const { return m_resultText; }
    QStringList validationMessages() const { return m_shownMessages; }
    LabelPreviewView* preview() const { return m_preview; }
    // Shown only while there is more than one template.
    QPushButton* deleteButton() const { return m_deleteButton; }

private:
    void buildDetailsSection();
    void buildPlaceholderSection();
    void buildZPLSection();
    void buildPreviewSection();
    void refreshPreview();
    void refresh() override;
    void refreshPrinterChoice(const std::optional<QUuid>& printerID);
    void refreshValidation(const QString& zpl);
    void showZPL(const QString& zpl);
    void takeZPLEdit(int position);

    QLineEdit* m_name = nullptr;
    QComboBox* m_printerChoice = nullptr;
    QWidget* m_noPrinters = nullptr;
    QPushButton* m_addPrinter = nullptr;
    QStringList m_shownPrinters;
    InfoBox* m_printerHint = nullptr;
    QList<QToolButton*> m_chips;
    InfoBox* m_copyHint = nullptr;
    QWidget* m_copyFeedback = nullptr;
    QLabel* m_copyFeedbackText = nullptr;
    QPlainTextEdit* m_zpl = nullptr;
    QPushButton* m_testButton = nullptr;
    QWidget* m_testingRow = nullptr;
    QWidget* m_resultRow = nullptr;
    QWidget* m_successIcon = nullptr;
    QWidget* m_failureIcon = nullptr;
    QLabel* m_resultText = nullptr;
    QVBoxLayout* m_validation = nullptr;
    QStringList m_shownMessages;
    LabelRenderer m_renderer;
    LabelPreviewView* m_preview = nullptr;
    QTimer m_previewTimer;
    QString m_previewedZPL; // the text the preview shows
    QPushButton* m_deleteButton = nullptr;
    // The template's text exactly as stored, and the document's raw text
    // showing it: QPlainTextEdit turns CR, CRLF, U+2028 and no-break spaces
    // into other characters in toPlainText().
    QString m_zplText;
    QString m_zplShown;
    bool m_syncingZPL = false;
};
