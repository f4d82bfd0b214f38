#include "views/main/AboutWindow.h"

#include "views/main/AboutView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AboutWindow::AboutWindow(QWidget* parent) : QWidget(parent, Qt::Window), m_view(new AboutView)
{
    setWindowTitle(u"About"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFixedSize(AboutView::kSize, AboutView::kSize);
}
