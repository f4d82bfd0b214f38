#pragma once

#include <QAbstractButton>

// A clickable placeholder key ("{{NAAM}}") in blue monospaced text on a pale
// blue rounded background.
class PlaceholderChip : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PlaceholderChip(const QString& key, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
