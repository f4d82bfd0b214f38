#pragma once

#include <QWidget>

class QLineEdit;
class QPushButton;
class QVBoxLayout;

// The grouped form the editor pages and the "Over" page share: sections with
// a headline above a rounded panel, stacked top to bottom.
class SettingsEditorPage : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsEditorPage(QWidget* parent = nullptr);

    // A push button that Return presses too, as the space bar does.
    static QPushButton* makeButton(const QString& text);

protected:
    struct Section
    {
        QWidget* widget;
        QVBoxLayout* content;
    };

    // An empty header gives a section without header.
    Section addSection(const QString& header);
    // A section holding only a centred destructive button (trash icon + text).
    QPushButton* addDeleteSection(const QString& text, QWidget** section);
    // Sets the text only when it differs, so the cursor of a field being
    // edited is left alone.
    static void syncText(QLineEdit* field, const QString& text);
    static QLineEdit* makeLineEdit(const QString& placeholder, int width = -1);

private:
    QVBoxLayout* m_column;
};
