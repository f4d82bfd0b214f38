#pragma once

#include <QVBoxLayout>
#include <QWidget>

class QLabel;
class QPushButton;

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

    QLabel* addLine(const QString& text, const QFont& font);
    QPushButton* addButton(const QString& text);

private:
    // Between the two stretches, which keep the column centred.
    template <typename Widget> Widget* add(Widget* widget)
    {
        m_column->insertWidget(m_column->count() - 1, widget, 0, Qt::AlignHCenter);
        return widget;
    }

    QVBoxLayout* m_column;
    QLabel* m_headline = nullptr;
    QLabel* m_detail = nullptr;
};
