#pragma once

#include "model/Dossier.h"
#include "model/LabelTemplate.h"
#include "model/Printer.h"
#include "model/SettingsData.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUuid>
#include <functional>
#include <optional>

// The one settings store. Loads ~/.stampix/settings.json on construction,
// migrates the old flat layout, repairs the selections and saves itself 0.5 s
// after the last assignment to any published property.
class AppSettings : public QObject
{
    Q_OBJECT

public:
    static constexpr int kSaveDelayMs = 500;

    explicit AppSettings(QObject* parent = nullptr);
    ~AppSettings() override;

    // Published properties: every setter notifies and schedules a save, even
    // when the value does not change.
    const QString& bookyear() const { return m_bookyear; }
    void setBookyear(const QString& value);
    const QList<Dossier>& dossiers() const { return m_dossiers; }
    void setDossiers(const QList<Dossier>& value);
    std::optional<QUuid> selectedDossierID() const { return m_selectedDossierID; }
    void setSelectedDossierID(std::optional<QUuid> value);
    const QList<Printer>& printers() const { return m_printers; }
    void setPrinters(const QList<Printer>& value);
    const QList<LabelTemplate>& templates() const { return m_templates; }
    void setTemplates(const QList<LabelTemplate>& value);
    std::optional<QUuid> selectedTemplateID() const { return m_selectedTemplateID; }
    void setSelectedTemplateID(std::optional<QUuid> value);
    double settingsWindowWidth() const { return m_settingsWindowWidth; }
    void setSettingsWindowWidth(double value);
    double settingsWindowHeight() const { return m_settingsWindowHeight; }
    void setSettingsWindowHeight(double value);
    double columnWidthCheckbox() const { return m_columnWidthCheckbox; }
    void setColumnWidthCheckbox(double value);
    double columnWidthSKU() const { return m_columnWidthSKU; }
    void setColumnWidthSKU(double value);
    double columnWidthName() const { return m_columnWidthName; }
    void setColumnWidthName(double value);
    double columnWidthPrice() const { return m_columnWidthPrice; }
    void setColumnWidthPrice(double value);
    double columnWidthBarcode() const { return m_columnWidthBarcode; }
    void setColumnWidthBarcode(double value);

    // Edit one record in place (an assignment of the whole list). A stale
    // index is ignored and returns false.
    bool updateDossier(qsizetype index, const std::function<void(Dossier&)>& edit);
    bool updatePrinter(qsizetype index, const std::function<void(Printer&)>& edit);
    bool updateTemplate(qsizetype index, const std::function<void(LabelTemplate&)>& edit);

    // Computed.
    std::optional<Dossier> selectedDossier() const;
    std::optional<LabelTemplate> selectedTemplate() const;
    bool isConfigured() const;
    bool isPrinterConfigured() const;
    std::optional<Printer> printerFor(const LabelTemplate& labelTemplate) const;

    void addDossier();
    void deleteDossier(const Dossier& dossier);
    void addPrinter();
    void deletePrinter(const Printer& printer);
    void addTemplate();
    void deleteTemplate(const LabelTemplate& labelTemplate);

    // Both return the error's description on failure, nothing on success;
    // the store is unchanged by a failure.
    std::optional<QString> exportSettings(const QString& filePath) const;
    std::optional<QString> importSettings(const QString& filePath);

    // Writes a pending save now (used once, when the application quits).
    void savePendingChanges();
    bool isSavePending() const;

    QString settingsFilePath() const;

    // Why the last save failed, as printed after "Failed to save settings: ";
    // empty again once a save succeeds.
    const QString& saveError() const { return m_saveError; }

signals:
    void bookyearChanged();
    void dossiersChanged();
    void selectedDossierIDChanged();
    void printersChanged();
    void templatesChanged();
    void selectedTemplateIDChanged();
    void settingsWindowWidthChanged();
    void settingsWindowHeightChanged();
    void columnWidthCheckboxChanged();
    void columnWidthSKUChanged();
    void columnWidthNameChanged();
    void columnWidthPriceChanged();
    void columnWidthBarcodeChanged();
    void saveErrorChanged();

private:
    template <typename T> void assign(T& member, const T& value, void (AppSettings::*changed)());
    template <typename Record>
    bool updateRecord(const QList<Record>& records, qsizetype index,
                      const std::function<void(Record&)>& edit,
                      void (AppSettings::*set)(const QList<Record>&));

    void scheduleSettingsSave();
    void saveSettings();
    void setSaveError(const QString& description);
    void loadSettings();
    void keepUnreadableFile(const QString& description);
    void applyLoadedValues(const SettingsData& data);
    void applySizes(const SettingsData& data);
    void migrateLegacyDossier(const SettingsData& data);
    void migrateOldPrinterSettings(const SettingsData& data);
    // Binds every template bound to `from` to `to`, in one assignment if any.
    void rebindTemplates(const std::optional<QUuid>& from, const std::optional<QUuid>& to);
    // A non-empty list and a selection that names one of its records.
    void ensureDossierSelected();
    void ensureTemplateSelected();
    SettingsData currentDocument() const;

    QString m_settingsDirectory;
    QString m_settingsFile;
    QTimer m_saveTimer;
    // Set when an unreadable settings file could not be moved aside: saves
    // then leave it alone rather than destroy what may still be recovered.
    bool m_keepExistingFile = false;
    QString m_saveError;

    QString m_bookyear;
    QList<Dossier> m_dossiers;
    std::optional<QUuid> m_selectedDossierID;
    QList<Printer> m_printers;
    QList<LabelTemplate> m_templates;
    std::optional<QUuid> m_selectedTemplateID;
    double m_settingsWindowWidth = 1100;
    double m_settingsWindowHeight = 700;
    double m_columnWidthCheckbox = 30;
    double m_columnWidthSKU = 120;
    double m_columnWidthName = 300;
    double m_columnWidthPrice = 100;
    double m_columnWidthBarcode = 130;
};
