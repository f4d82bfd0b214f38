#pragma once

#include <QWidget>

class QVBoxLayout;

// The rounded panel of one grouped-form section; its content is a
// left-aligned column.
class SettingsSectionCard : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsSectionCard(QWidget* parent = nullptr);

    QVBoxLayout* content() const { return m_content; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_content;
};
