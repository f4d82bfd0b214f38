#pragma once

#include "viewmodels/SettingsTabKey.h"

#include <QUuid>
#include <QWidget>

class QLineEdit;
class QPushButton;
class QVBoxLayout;
class SettingsViewModel;

// The grouped form the editor pages and the "Over" page share: sections with
// a headline above a rounded panel, stacked top to bottom. An editor shows
// one record of its kind, found by id on every read and write.
class SettingsEditorPage : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsEditorPage(SettingsViewModel* model = nullptr,
                                SettingsTabKey::Kind kind = SettingsTabKey::Kind::none,
                                QWidget* parent = nullptr);

    // A push button that Return presses too, as the space bar does.
    static QPushButton* makeButton(const QString& text);

    // Shows the record with this id; an id the store does not hold shows an
    // empty page, and writes to it are ignored.
    virtual void setRecord(const QUuid& id)
    {
        m_record = id;
        refresh();
    }
    // The record's position in the store's list, or -1.
    qsizetype index() const;

protected:
    // The content column of a new section; an empty header gives a section
    // without header.
    QVBoxLayout* addSection(const QString& header);
    // A section holding only a centred destructive button (trash icon + text).
    QPushButton* addDeleteSection(const QString& text);
    // Hides or shows the section of the delete button.
    static void showDeleteSection(QPushButton* button, bool shown);
    // Sets the text only when it differs, so the cursor of a field being
    // edited is left alone.
    static void syncText(QLineEdit* field, const QString& text);
    static QLineEdit* makeLineEdit(const QString& placeholder, int width = -1);
    virtual void refresh() {}

    SettingsViewModel* m_model;
    QUuid m_record;

private:
    SettingsTabKey::Kind m_kind;
    QVBoxLayout* m_column;
};
