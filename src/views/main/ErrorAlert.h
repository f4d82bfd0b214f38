#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>

class ProductListViewModel;
class QWidget;

// Shows the view model's error message in a window-modal alert "Fout" with
// one "OK" button, whenever a message is present; OK clears the message. The
// alert does not block: it is opened, not executed.
class ErrorAlert : public QObject
{
    Q_OBJECT

public:
    ErrorAlert(ProductListViewModel& viewModel, QWidget* window);
    ~ErrorAlert() override;

    // The open alert, or null.
    QMessageBox* messageBox() const { return m_box; }
    // Opens, updates or closes the alert to match the current message.
    void showMessage();

private:
    void setMessage(const QString& message);
    void acknowledge();

    ProductListViewModel& m_viewModel;
    QWidget* m_window;
    QPointer<QMessageBox> m_box;
};
