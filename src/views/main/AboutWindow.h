#pragma once

#include <QWidget>

class AboutView;

// The small "About" window around AboutView. Deletes itself when closed.
class AboutWindow : public QWidget
{
    Q_OBJECT

public:
    explicit AboutWindow(QWidget* parent = nullptr);

    AboutView* view() const { return m_view; }

private:
    AboutView* m_view;
};
