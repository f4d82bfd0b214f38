#include "views/main/ErrorAlert.h"

#include "viewmodels/ProductListViewModel.h"

#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

ErrorAlert::ErrorAlert(ProductListViewModel& viewModel, QWidget* window)
    : QObject(window), m_viewModel(viewModel), m_window(window)
{
    connect(&m_viewModel, &ProductListViewModel::errorMessageChanged, this,
            &ErrorAlert::showMessage);
}

ErrorAlert::~ErrorAlert()
{
    delete m_box;
}

void ErrorAlert::showMessage()
{
    const std::optional<QString>& message = m_viewModel.errorMessage();
    if (!message) {
        if (m_box) {
            // Cleared elsewhere (another window's alert, a new load): close without a second clear.
            m_box->disconnect(this);
            m_box->close();
            m_box->deleteLater();
            m_box = nullptr;
        }
        return;
    }
    if (m_box)
        return setMessage(*message);
    m_box = new QMessageBox(m_window);
    m_box->setObjectName(u"errorAlert"_s);
    m_box->setIcon(QMessageBox::Warning);
    m_box->setWindowTitle(u"Fout"_s);
    m_box->setTextFormat(Qt::PlainText);
    setMessage(*message);
    QPushButton* ok = m_box->addButton(u"OK"_s, QMessageBox::AcceptRole);
    ok->setObjectName(u"okButton"_s);
    m_box->setDefaultButton(ok);
    m_box->setEscapeButton(ok);
    m_box->setWindowModality(Qt::WindowModal);
    connect(m_box, &QMessageBox::finished, this, &ErrorAlert::acknowledge);
    m_box->open();
}

void ErrorAlert::setMessage(const QString& message)
{
#ifdef Q_OS_MACOS
    // A sheet has no title bar: the title leads and the message follows, as in a native alert.
    m_box->setText(u"Fout"_s);
    m_box->setInformativeText(message);
#else
    m_box->setText(message);
#endif
}

void ErrorAlert::acknowledge()
{
    if (m_box)
        m_box->deleteLater();
    m_box = nullptr;
    m_viewModel.clearError();
}
