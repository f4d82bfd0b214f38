#pragma once

#include <QWidget>

class QLabel;

// Content of the About window: icon, name, version, description, the year
// and a link to the maker's website. Fixed at 320 x 320.
class AboutView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSize = 320;

    explicit AboutView(QWidget* parent = nullptr);

    QLabel* linkLabel() const { return m_link; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_iconSpace;
    QLabel* m_link;
};
