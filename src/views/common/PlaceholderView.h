#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

// What a content area shows when it has nothing else to show: a centred
// column of a picture, a headline, a detail line and, if asked for, a button.
class PlaceholderView : public QWidget
{
    Q_OBJECT

public:
    // An empty headline or detail leaves its line out.
    PlaceholderView(QWidget* picture, const QString& headline, const QString& detail,
                    QWidget* parent = nullptr);

    // A symbol at the size and in the colour the placeholders use.
    static QWidget* symbol(const QString& symbolName);

    QLabel* headline() const { return m_headline; }
    QLabel* detail() const { return m_detail; }

    // Below the lines given so far.
    QLabel* addLine(const QString& text, const QFont& font);
    QPushButton* addButton(const QString& text);

private:
    void add(QWidget* widget);

    QVBoxLayout* m_column;
    QLabel* m_headline = nullptr;
    QLabel* m_detail = nullptr;
};
