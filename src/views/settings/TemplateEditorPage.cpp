#include "views/settings/TemplateEditorPage.h"

#include "labelrender/LabelPreview.h"
#include "model/AppSettings.h"
#include "viewmodels/SettingsViewModel.h"
#include "views/common/BusyIndicator.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/settings/ExactTextEdit.h"
#include "views/settings/InfoBox.h"
#include "views/settings/LabelledField.h"
#include "views/settings/PrinterChoiceDelegate.h"

#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSmallIcon = 12;
constexpr int kSpinnerSize = 12;
constexpr int kEditorMinHeight = 200;
constexpr int kChoiceWidth = 250;

// One look for all chips: blue monospaced text on pale blue. The button adds
// room around its text of its own, so the chip needs no padding.
constexpr QStringView kChipStyle =
    u"QToolButton { color: #007aff; background: rgba(0, 122, 255, 26); padding: 0px;"
    " border: 2px solid transparent; border-radius: 4px; }"
    " QToolButton:pressed { background: rgba(0, 122, 255, 51); }"
    " QToolButton:focus { border-color: palette(highlight); }";

// A thin gray edge that turns into a wider one in the accent colour with the focus.
constexpr QStringView kEditorStyle =
    u"QPlainTextEdit { border: 1px solid rgba(160, 160, 164, 77); padding: 1px; }"
    " QPlainTextEdit:focus { border: 2px solid palette(highlight); padding: 0px; }";

QHBoxLayout* tightRow(QWidget* owner, int spacing)
{
    auto* row = new QHBoxLayout(owner);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

} // namespace

TemplateEditorPage::TemplateEditorPage(SettingsViewModel& model, QWidget* parent)
    : SettingsEditorPage(&model, SettingsTabKey::Kind::labelTemplate, parent)
{
    buildDetailsSection();
    buildPlaceholderSection();
    buildZPLSection();
    buildPreviewSection();
    m_deleteButton = addDeleteSection(u"Verwijder Etiket"_s);
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { m_model->deleteRecord(SettingsTabKey::Kind::labelTemplate, index()); });

    AppSettings& settings = m_model->settings();
    connect(&settings, &AppSettings::templatesChanged, this, &TemplateEditorPage::refresh);
    connect(&settings, &AppSettings::printersChanged, this, &TemplateEditorPage::refresh);
    connect(m_model, &SettingsViewModel::resultsChanged, this, &TemplateEditorPage::refresh);
    refresh();
    refreshPreview();
}

void TemplateEditorPage::buildDetailsSection()
{
    QVBoxLayout* details = addSection(u"Etiket Details"_s);
    m_name = makeLineEdit(u"Etiket naam"_s);
    m_printerHint =
        new InfoBox(u"Selecteer een printer om etiketten te kunnen printen met dit template"_s);
    details->addWidget(new LabelledField(u"tag"_s, u"Naam"_s, m_name));

    // The printer input: a choice of the configured printers, or, when there
    // are none, a note with a button that adds one.
    m_printerChoice = new QComboBox;
    m_printerChoice->setFixedWidth(kChoiceWidth);
    m_printerChoice->setItemDelegate(new PrinterChoiceDelegate(m_printerChoice));
    m_noPrinters = new QWidget;
    m_addPrinter = makeButton(u"Printer Toevoegen"_s);
    m_addPrinter->setFont(Theme::caption());
    QHBoxLayout* noPrintersRow = tightRow(m_noPrinters, -1);
    noPrintersRow->addWidget(
        Theme::label(u"Geen printers geconfigureerd"_s, Theme::caption(), Theme::kSecondaryText));
    noPrintersRow->addWidget(m_addPrinter);
    noPrintersRow->addStretch();
    auto* printerField = new QWidget;
    QHBoxLayout* printerRow = tightRow(printerField, -1);
    printerRow->addWidget(m_printerChoice);
    printerRow->addWidget(m_noPrinters);
    printerRow->addStretch();
    details->addWidget(new LabelledField(u"printer"_s, u"Printer"_s, printerField));
    m_printerChoice->setAccessibleName(u"Printer"_s);
    details->addWidget(m_printerHint);

    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_model->settings().updateTemplate(index(), [&text](LabelTemplate& t) { t.name = text; });
    });
    connect(m_printerChoice, &QComboBox::activated, this, [this](int row) {
        const QString id =
            m_printerChoice->itemData(row, PrinterChoiceDelegate::kIDRole).toString();
        const std::optional<QUuid> printerID =
            id.isEmpty() ? std::nullopt : std::optional(QUuid::fromString(id));
        m_model->settings().updateTemplate(
            index(), [&printerID](LabelTemplate& t) { t.printerID = printerID; });
    });
    connect(m_addPrinter, &QPushButton::clicked, this,
            [this] { m_model->addRecord(SettingsTabKey::Kind::printer, false); });
}

void TemplateEditorPage::refreshPrinterChoice(const std::optional<QUuid>& printerID)
{
    const QList<Printer>& printers = m_model->settings().printers();
    m_printerChoice->setVisible(!printers.isEmpty());
    m_noPrinters->setVisible(printers.isEmpty());
    const QSignalBlocker blocker(m_printerChoice);
    QStringList shown;
    for (const Printer& printer : printers)
        shown << SettingsTabKey::uuidText(printer.id) << printer.name << printer.ipAddress;
    // Left alone while unchanged, so an open drop-down is not disturbed.
    if (shown != m_shownPrinters || m_printerChoice->count() == 0) {
        m_shownPrinters = shown;
        m_printerChoice->clear();
        m_printerChoice->addItem(u"Geen printer geselecteerd"_s, QString());
        for (const Printer& printer : printers) {
            m_printerChoice->addItem(printer.ipAddress.isEmpty()
                                         ? printer.name
                                         : printer.name + u" ("_s + printer.ipAddress + u")"_s,
                                     SettingsTabKey::uuidText(printer.id));
            const int row = m_printerChoice->count() - 1;
            m_printerChoice->setItemData(row, printer.name, PrinterChoiceDelegate::kNameRole);
            m_printerChoice->setItemData(row, printer.ipAddress,
                                         PrinterChoiceDelegate::kAddressRole);
        }
    }
    // A printer id that names no printer shows no entry.
    m_printerChoice->setCurrentIndex(
        printerID ? m_printerChoice->findData(SettingsTabKey::uuidText(*printerID),
                                              PrinterChoiceDelegate::kIDRole)
                  : 0);
}

void TemplateEditorPage::buildPlaceholderSection()
{
    QVBoxLayout* placeholders = addSection(u"Beschikbare Placeholders"_s);
    QStringList keys = ZPLService::placeholders().keys();
    std::sort(keys.begin(), keys.end());
    auto* chipRow = new QHBoxLayout;
    chipRow->setSpacing(16);
    for (const QString& key : std::as_const(keys)) {
        auto* chip = new QToolButton;
        chip->setText(key);
        chip->setFont(Theme::monospaced(Theme::caption().pixelSize()));
        chip->setStyleSheet(kChipStyle.toString());
        chip->setToolTip(u"Klik om te kopiëren"_s);
        chip->setCursor(Qt::PointingHandCursor);
        chip->setFocusPolicy(Qt::StrongFocus);
        // Return copies too: the space bar may be kept by the product table.
        auto* press = new QShortcut(chip);
        press->setKeys({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
        press->setContext(Qt::WidgetShortcut);
        connect(press, &QShortcut::activated, chip, &QToolButton::click);
        connect(chip, &QToolButton::clicked, this, [this, key] {
            QGuiApplication::clipboard()->setText(key);
            m_model->placeholderCopied(key);
        });
        chipRow->addWidget(chip);
        m_chips.append(chip);
    }
    chipRow->addStretch();
    placeholders->addLayout(chipRow);

    // The hint keeps its place while the feedback is shown over it.
    m_copyHint = new InfoBox(u"Klik op een placeholder om te kopiëren naar klembord"_s);
    QSizePolicy keepSpace = m_copyHint->sizePolicy();
    keepSpace.setRetainSizeWhenHidden(true);
    m_copyHint->setSizePolicy(keepSpace);

    m_copyFeedback = new QWidget;
    m_copyFeedbackText = Theme::label({}, Theme::caption(), Theme::kSuccessText);
    QHBoxLayout* feedbackRow = tightRow(m_copyFeedback, 4);
    feedbackRow->addWidget(
        new SymbolLabel(u"checkmark.circle.fill"_s, kSmallIcon, Theme::kSuccessText));
    feedbackRow->addWidget(m_copyFeedbackText);
    feedbackRow->addStretch();

    auto* layers = new QGridLayout;
    layers->setContentsMargins(0, 0, 0, 0);
    layers->addWidget(m_copyHint, 0, 0);
    layers->addWidget(m_copyFeedback, 0, 0, Qt::AlignVCenter);
    placeholders->addLayout(layers);
}

void TemplateEditorPage::buildZPLSection()
{
    QVBoxLayout* zpl = addSection(u"ZPL Template"_s);
    m_zpl = new QPlainTextEdit;
    m_zpl->setFont(Theme::monospaced(Theme::body().pixelSize()));
    m_zpl->setMinimumHeight(kEditorMinHeight);
    m_zpl->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_zpl->setAccessibleName(u"ZPL Template"_s);
    // Tab leaves the editor, so the keyboard never gets stuck in it.
    m_zpl->setTabChangesFocus(true);
    m_zpl->setStyleSheet(kEditorStyle.toString());
    zpl->addWidget(m_zpl);

    m_testButton = makeButton(u"Test Print"_s);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(m_testButton);
    zpl->addLayout(buttonRow);

    m_testingRow = new QWidget;
    QHBoxLayout* testing = tightRow(m_testingRow, 8);
    testing->addWidget(new BusyIndicator(kSpinnerSize));
    testing->addWidget(
        Theme::label(u"Test etiket versturen..."_s, Theme::caption(), Theme::kSecondaryText));
    testing->addStretch();
    zpl->addWidget(m_testingRow);

    m_resultRow = new QWidget;
    m_successIcon = new SymbolLabel(u"checkmark.circle.fill"_s, kSmallIcon, Theme::kSuccessText);
    m_failureIcon = new SymbolLabel(u"xmark.circle.fill"_s, kSmallIcon, Theme::kErrorText);
    m_resultText = Theme::label({}, Theme::caption(), QPalette::WindowText);
    m_resultText->setWordWrap(true);
    m_resultText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QHBoxLayout* result = tightRow(m_resultRow, 4);
    result->addWidget(m_successIcon);
    result->addWidget(m_failureIcon);
    result->addWidget(m_resultText, 1);
    zpl->addWidget(m_resultRow);

    m_validation = new QVBoxLayout;
    m_validation->setSpacing(4);
    zpl->addLayout(m_validation);

    connect(m_zpl->document(), &QTextDocument::contentsChange, this,
            [this](int position, int, int) { takeZPLEdit(position); });
    connect(m_testButton, &QPushButton::clicked, this,
            [this] { m_model->testPrintTemplate(index()); });
}

void TemplateEditorPage::buildPreviewSection()
{
    m_preview = new LabelPreviewView;
    addSection(u"Voorbeeld"_s)->addWidget(m_preview);
    m_previewTimer.setSingleShot(true);
    m_previewTimer.setInterval(kPreviewDelay);
    connect(&m_previewTimer, &QTimer::timeout, this, &TemplateEditorPage::refreshPreview);
}

void TemplateEditorPage::refreshPreview()
{
    // The sample values fill the text, as previewZPL does.
    m_previewTimer.stop();
    m_previewedZPL = m_zplText;
    m_preview->showPreview(LabelPreview::make(m_renderer, m_previewedZPL, nullptr, 1));
}

void TemplateEditorPage::setRecord(const QUuid& id)
{
    SettingsEditorPage::setRecord(id);
    // Another record starts with its own history and its preview at once.
    m_zpl->document()->clearUndoRedoStacks();
    refreshPreview();
}

void TemplateEditorPage::showZPL(const QString& zpl)
{
    m_syncingZPL = true;
    m_zpl->setPlainText(zpl);
    m_syncingZPL = false;
    m_zplText = zpl;
    m_zplShown = m_zpl->document()->toRawText();
}

void TemplateEditorPage::takeZPLEdit(int position)
{
    if (m_syncingZPL)
        return;
    const QString shown = m_zpl->document()->toRawText();
    m_zplText = applyExactTextEdit(m_zplText, m_zplShown, shown, position);
    m_zplShown = shown;
    m_model->settings().updateTemplate(index(),
                                       [this](LabelTemplate& t) { t.zplContent = m_zplText; });
}

void TemplateEditorPage::refresh()
{
    const AppSettings& settings = m_model->settings();
    const QList<LabelTemplate>& templates = settings.templates();
    const qsizetype at = index();
    const bool valid = at >= 0;
    const LabelTemplate labelTemplate = valid ? templates.at(at) : LabelTemplate{};

    syncText(m_name, valid ? labelTemplate.name : QString());
    refreshPrinterChoice(labelTemplate.printerID);
    m_printerHint->setVisible(valid && !labelTemplate.printerID && !settings.printers().isEmpty());

    // Only a different text replaces the editor's: a change elsewhere in the
    // store keeps the cursor and the undo history.
    const QString zpl = valid ? labelTemplate.zplContent : QString();
    if (zpl != m_zplText)
        showZPL(zpl);
    refreshValidation(zpl);
    if (m_zplText != m_previewedZPL)
        m_previewTimer.start();
    showDeleteSection(m_deleteButton, templates.size() > 1);

    // The test print's state and the copy feedback are one value for the window.
    const bool testing = m_model->isTemplateTesting();
    m_testButton->setEnabled(valid && labelTemplate.printerID && !testing);
    const std::optional<QString>& result = m_model->templateTestResult();
    m_testingRow->setVisible(testing);
    m_resultRow->setVisible(!testing && result.has_value());
    const bool success = result.value_or(QString()).contains(u"✓"_s);
    m_resultText->setText(result.value_or(QString()));
    m_resultText->setForegroundRole(success ? Theme::kSuccessText : Theme::kErrorText);
    m_successIcon->setVisible(success);
    m_failureIcon->setVisible(!success);
    const std::optional<QString>& copied = m_model->copiedPlaceholder();
    m_copyHint->setVisible(!copied);
    m_copyFeedback->setVisible(copied.has_value());
    if (copied)
        m_copyFeedbackText->setText(*copied + u" gekopieerd naar klembord"_s);
}

void TemplateEditorPage::refreshValidation(const QString& zpl)
{
    const ZPLService::Validation validation = m_model->zplService().validateTemplate(zpl);
    if (validation.errors == m_shownMessages)
        return;
    m_shownMessages = validation.errors;
    while (QLayoutItem* item = m_validation->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const QString& message : std::as_const(m_shownMessages)) {
        auto* row = new QWidget;
        QHBoxLayout* layout = tightRow(row, 4);
        layout->addWidget(
            new SymbolLabel(u"exclamationmark.triangle.fill"_s, kSmallIcon, Theme::orange()));
        layout->addWidget(Theme::label(message, Theme::caption(), QPalette::WindowText));
        layout->addStretch();
        m_validation->addWidget(row);
    }
}
