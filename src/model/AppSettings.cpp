#include "model/AppSettings.h"

#include "model/SettingsFile.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void printLine(const QString& line)
{
    const QByteArray bytes = (line + u'\n').toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

template <typename Record> std::optional<QUuid> firstID(const QList<Record>& records)
{
    return records.isEmpty() ? std::nullopt : std::optional(records.first().id);
}

// The record named by `id`, or null.
template <typename Record>
const Record* findID(const QList<Record>& records, const std::optional<QUuid>& id)
{
    const auto found = std::find_if(records.cbegin(), records.cend(),
                                    [&id](const Record& record) { return record.id == id; });
    return found == records.cend() ? nullptr : &*found;
}

// A selection that names no record falls back to the first.
template <typename Record>
std::optional<Record> selectedOrFirst(const QList<Record>& records, const std::optional<QUuid>& id)
{
    if (const Record* selected = findID(records, id))
        return *selected;
    return records.isEmpty() ? std::nullopt : std::optional(records.first());
}

template <typename Record> QList<Record> withoutID(QList<Record> records, const QUuid& id)
{
    records.removeIf([&id](const Record& record) { return record.id == id; });
    return records;
}

} // namespace

AppSettings::AppSettings(QObject* parent) : QObject(parent)
{
    m_saveTimer.setSingleShot(true);
    // A coarse timer may fire a little early; the delay is a promise.
    m_saveTimer.setTimerType(Qt::PreciseTimer);
    m_saveTimer.setInterval(kSaveDelayMs);
    connect(&m_saveTimer, &QTimer::timeout, this, &AppSettings::saveSettings);

    m_settingsDirectory = QDir::homePath() + u"/.stampix"_s;
    m_settingsFile = m_settingsDirectory + u"/settings.json"_s;

    m_bookyear = SettingsData::currentYear();
    m_dossiers = {Dossier::defaultDossier()};
    m_templates = {LabelTemplate::defaultTemplate()};
    // An ordinary change, so every start ends with a save in the current format.
    setSelectedTemplateID(std::nullopt);

    SettingsFile::createPrivateDirectory(m_settingsDirectory);
    loadSettings();
    ensureDossierSelected();
    ensureTemplateSelected();
}

AppSettings::~AppSettings() = default;

template <typename T>
void AppSettings::assign(T& member, const T& value, void (AppSettings::*changed)())
{
    member = value;
    scheduleSettingsSave();
    emit(this->*changed)();
}

void AppSettings::setBookyear(const QString& value)
{
    assign(m_bookyear, value, &AppSettings::bookyearChanged);
}

void AppSettings::setDossiers(const QList<Dossier>& value)
{
    assign(m_dossiers, value, &AppSettings::dossiersChanged);
}

void AppSettings::setSelectedDossierID(std::optional<QUuid> value)
{
    assign(m_selectedDossierID, value, &AppSettings::selectedDossierIDChanged);
}

void AppSettings::setPrinters(const QList<Printer>& value)
{
    assign(m_printers, value, &AppSettings::printersChanged);
}

void AppSettings::setTemplates(const QList<LabelTemplate>& value)
{
    assign(m_templates, value, &AppSettings::templatesChanged);
}

void AppSettings::setSelectedTemplateID(std::optional<QUuid> value)
{
    assign(m_selectedTemplateID, value, &AppSettings::selectedTemplateIDChanged);
}

void AppSettings::setSettingsWindowWidth(double value)
{
    assign(m_settingsWindowWidth, value, &AppSettings::settingsWindowWidthChanged);
}

void AppSettings::setSettingsWindowHeight(double value)
{
    assign(m_settingsWindowHeight, value, &AppSettings::settingsWindowHeightChanged);
}

void AppSettings::setColumnWidthCheckbox(double value)
{
    assign(m_columnWidthCheckbox, value, &AppSettings::columnWidthCheckboxChanged);
}

void AppSettings::setColumnWidthSKU(double value)
{
    assign(m_columnWidthSKU, value, &AppSettings::columnWidthSKUChanged);
}

void AppSettings::setColumnWidthName(double value)
{
    assign(m_columnWidthName, value, &AppSettings::columnWidthNameChanged);
}

void AppSettings::setColumnWidthPrice(double value)
{
    assign(m_columnWidthPrice, value, &AppSettings::columnWidthPriceChanged);
}

void AppSettings::setColumnWidthBarcode(double value)
{
    assign(m_columnWidthBarcode, value, &AppSettings::columnWidthBarcodeChanged);
}

template <typename Record>
bool AppSettings::updateRecord(const QList<Record>& records, qsizetype index,
                               const std::function<void(Record&)>& edit,
                               void (AppSettings::*set)(const QList<Record>&))
{
    if (index < 0 || index >= records.size())
        return false;
    QList<Record> edited = records;
    edit(edited[index]);
    (this->*set)(edited);
    return true;
}

bool AppSettings::updateDossier(qsizetype index, const std::function<void(Dossier&)>& edit)
{
    return updateRecord(m_dossiers, index, edit, &AppSettings::setDossiers);
}

bool AppSettings::updatePrinter(qsizetype index, const std::function<void(Printer&)>& edit)
{
    return updateRecord(m_printers, index, edit, &AppSettings::setPrinters);
}

bool AppSettings::updateTemplate(qsizetype index, const std::function<void(LabelTemplate&)>& edit)
{
    return updateRecord(m_templates, index, edit, &AppSettings::setTemplates);
}

std::optional<Dossier> AppSettings::selectedDossier() const
{
    return selectedOrFirst(m_dossiers, m_selectedDossierID);
}

std::optional<LabelTemplate> AppSettings::selectedTemplate() const
{
    return selectedOrFirst(m_templates, m_selectedTemplateID);
}

bool AppSettings::isConfigured() const
{
    const std::optional<Dossier> dossier = selectedDossier();
    return dossier && !dossier->apiKey.isEmpty();
}

bool AppSettings::isPrinterConfigured() const
{
    const std::optional<LabelTemplate> labelTemplate = selectedTemplate();
    if (!labelTemplate)
        return false;
    const std::optional<Printer> printer = printerFor(*labelTemplate);
    return printer && !printer->ipAddress.isEmpty();
}

std::optional<Printer> AppSettings::printerFor(const LabelTemplate& labelTemplate) const
{
    const Printer* printer = findID(m_printers, labelTemplate.printerID);
    return printer ? std::optional(*printer) : std::nullopt;
}

void AppSettings::addDossier()
{
    const Dossier dossier{QUuid::createUuid(), u"Nieuw Dossier"_s, QString()};
    setDossiers(m_dossiers + QList<Dossier>{dossier});
    setSelectedDossierID(dossier.id);
}

void AppSettings::deleteDossier(const Dossier& dossier)
{
    if (m_dossiers.size() < 2)
        return;
    // A copy: `dossier` may refer into the list that is about to be replaced.
    const QUuid removedID = dossier.id;
    setDossiers(withoutID(m_dossiers, removedID));
    if (m_selectedDossierID == removedID)
        setSelectedDossierID(firstID(m_dossiers));
}

void AppSettings::addPrinter()
{
    const Printer printer{QUuid::createUuid(), u"Nieuwe Printer"_s, QString(),
                          Printer::kDefaultPort};
    setPrinters(m_printers + QList<Printer>{printer});
}

void AppSettings::deletePrinter(const Printer& printer)
{
    const QUuid removedID = printer.id;
    setPrinters(withoutID(m_printers, removedID));
    rebindTemplates(removedID, std::nullopt);
}

void AppSettings::rebindTemplates(const std::optional<QUuid>& from, const std::optional<QUuid>& to)
{
    QList<LabelTemplate> edited = m_templates;
    bool changed = false;
    for (LabelTemplate& labelTemplate : edited) {
        if (labelTemplate.printerID == from) {
            labelTemplate.printerID = to;
            changed = true;
        }
    }
    if (changed)
        setTemplates(edited);
}

void AppSettings::addTemplate()
{
    const LabelTemplate labelTemplate{QUuid::createUuid(),
                                      u"Nieuw Etiket"_s,
                                      LabelTemplate::defaultTemplate().zplContent,
                                      {},
                                      {},
                                      {}};
    setTemplates(m_templates + QList<LabelTemplate>{labelTemplate});
    setSelectedTemplateID(labelTemplate.id);
}

void AppSettings::deleteTemplate(const LabelTemplate& labelTemplate)
{
    if (m_templates.size() < 2)
        return;
    const QUuid removedID = labelTemplate.id;
    setTemplates(withoutID(m_templates, removedID));
    if (m_selectedTemplateID == removedID)
        setSelectedTemplateID(firstID(m_templates));
}

std::optional<QString> AppSettings::exportSettings(const QString& filePath) const
{
    // The file holds every API key: as private as the settings file itself.
    return SettingsFile::writeAtomically(filePath, currentDocument().write());
}

std::optional<QString> AppSettings::importSettings(const QString& filePath)
{
    // Read and decode completely before the first assignment, so a failure
    // leaves the store untouched.
    QString error;
    const std::optional<QByteArray> bytes = SettingsFile::readAll(filePath, &error);
    if (!bytes)
        return error;
    const std::optional<SettingsData> data = SettingsData::read(*bytes, &error);
    if (!data)
        return error;

    // The legacy values are ignored: an import never migrates. Empty lists and
    // missing selections are filled before the assignments, as at the start.
    SettingsData imported = *data;
    if (imported.dossiers.isEmpty())
        imported.dossiers = {Dossier::defaultDossier()};
    if (!imported.selectedDossierID)
        imported.selectedDossierID = firstID(imported.dossiers);
    if (!imported.selectedTemplateID)
        imported.selectedTemplateID = firstID(imported.templates);
    applyLoadedValues(imported);
    ensureDossierSelected();
    ensureTemplateSelected();
    return std::nullopt;
}

void AppSettings::savePendingChanges()
{
    if (m_saveTimer.isActive())
        saveSettings();
}

bool AppSettings::isSavePending() const
{
    return m_saveTimer.isActive();
}

QString AppSettings::settingsFilePath() const
{
    return m_settingsFile;
}

void AppSettings::scheduleSettingsSave()
{
    // Restarting the single-shot timer turns a burst of changes into one
    // write; it is a member, so destroying the store cancels it.
    m_saveTimer.start();
}

void AppSettings::saveSettings()
{
    m_saveTimer.stop();
    const std::optional<QString> error =
        m_keepExistingFile
            ? u"the unreadable file %1 could not be moved aside and is not overwritten"_s.arg(
                  m_settingsFile)
            : SettingsFile::writeAtomically(m_settingsFile, currentDocument().write());
    if (error)
        printLine(u"Failed to save settings: "_s + *error);
    setSaveError(error.value_or(QString()));
}

void AppSettings::setSaveError(const QString& description)
{
    if (description == m_saveError)
        return;
    m_saveError = description;
    emit saveErrorChanged();
}

void AppSettings::loadSettings()
{
    if (!QFileInfo::exists(m_settingsFile))
        return;
    QString error;
    const std::optional<QByteArray> bytes = SettingsFile::readAll(m_settingsFile, &error);
    const std::optional<SettingsData> data =
        bytes ? SettingsData::read(*bytes, &error) : std::nullopt;
    if (!data) {
        keepUnreadableFile(error);
        return;
    }
    applyLoadedValues(*data);
    migrateLegacyDossier(*data);
    migrateOldPrinterSettings(*data);
}

void AppSettings::keepUnreadableFile(const QString& description)
{
    // The defaults are saved shortly; the file may hold the user's only copy
    // of their configuration, so it is moved out of the way first.
    QString moveError;
    const std::optional<QString> keptAs = SettingsFile::moveAside(m_settingsFile, &moveError);
    if (keptAs) {
        printLine(u"Failed to load settings: %1 (kept as %2)"_s.arg(description, *keptAs));
        return;
    }
    m_keepExistingFile = true;
    printLine(u"Failed to load settings: %1 (could not move it aside: %2; the file will not be "
              u"overwritten)"_s.arg(description, moveError));
}

void AppSettings::applyLoadedValues(const SettingsData& data)
{
    setBookyear(data.bookyear);
    setDossiers(data.dossiers);
    setSelectedDossierID(data.selectedDossierID);
    setPrinters(data.printers);
    setTemplates(data.templates);
    setSelectedTemplateID(data.selectedTemplateID);
    applySizes(data);
}

void AppSettings::applySizes(const SettingsData& data)
{
    setSettingsWindowWidth(data.settingsWindowWidth);
    setSettingsWindowHeight(data.settingsWindowHeight);
    setColumnWidthCheckbox(data.columnWidthCheckbox);
    setColumnWidthSKU(data.columnWidthSKU);
    setColumnWidthName(data.columnWidthName);
    setColumnWidthPrice(data.columnWidthPrice);
    setColumnWidthBarcode(data.columnWidthBarcode);
}

void AppSettings::migrateLegacyDossier(const SettingsData& data)
{
    if (!m_dossiers.isEmpty() || data.legacyApiKey.isEmpty())
        return;
    const Dossier dossier{QUuid::createUuid(), u"Gemigreerd Dossier"_s, data.legacyApiKey};
    setDossiers({dossier});
    setSelectedDossierID(dossier.id);
}

void AppSettings::migrateOldPrinterSettings(const SettingsData& data)
{
    if (!m_printers.isEmpty() || data.legacyPrinterIP.isEmpty())
        return;
    const Printer printer{QUuid::createUuid(), u"Gemigreerde Printer"_s, data.legacyPrinterIP,
                          data.legacyPrinterPort};
    setPrinters({printer});
    // Templates that already name a printer keep it.
    rebindTemplates(std::nullopt, printer.id);
}

void AppSettings::ensureDossierSelected()
{
    if (m_dossiers.isEmpty())
        setDossiers({Dossier::defaultDossier()});
    if (!findID(m_dossiers, m_selectedDossierID))
        setSelectedDossierID(firstID(m_dossiers));
}

void AppSettings::ensureTemplateSelected()
{
    if (m_templates.isEmpty())
        setTemplates({LabelTemplate::defaultTemplate()});
    if (!findID(m_templates, m_selectedTemplateID))
        setSelectedTemplateID(firstID(m_templates));
}

SettingsData AppSettings::currentDocument() const
{
    SettingsData data;
    data.bookyear = m_bookyear;
    data.dossiers = m_dossiers;
    data.selectedDossierID = m_selectedDossierID;
    data.printers = m_printers;
    data.templates = m_templates;
    data.selectedTemplateID = m_selectedTemplateID;
    data.settingsWindowWidth = m_settingsWindowWidth;
    data.settingsWindowHeight = m_settingsWindowHeight;
    data.columnWidthCheckbox = m_columnWidthCheckbox;
    data.columnWidthSKU = m_columnWidthSKU;
    data.columnWidthName = m_columnWidthName;
    data.columnWidthPrice = m_columnWidthPrice;
    data.columnWidthBarcode = m_columnWidthBarcode;
    return data;
}
