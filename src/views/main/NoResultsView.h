#pragma once

#include <QWidget>

class QLabel;

// Shown when the search finds no product.
class NoResultsView : public QWidget
{
    Q_OBJECT

public:
    explicit NoResultsView(const QString& searchText, QWidget* parent = nullptr);

    void setSearchText(const QString& searchText);
    QString headlineText() const;

private:
    QLabel* m_headline;
};
