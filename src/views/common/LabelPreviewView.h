#pragma once

#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QStringList>
#include <QWidget>

class LabelPictureButton;
class QVBoxLayout;
struct LabelPreview;

// A rendered label: the picture fitted to the width, the size in millimetres
// under it, and any warnings under "Waarschuwingen". A click on the picture
// opens it at 100 % in a window of its own.
class LabelPreviewView : public QWidget
{
    Q_OBJECT

public:
    explicit LabelPreviewView(QWidget* parent = nullptr);

    // Shows the first label of the preview and everything said about it.
    void showPreview(const LabelPreview& preview);

    LabelPictureButton* picture() const { return m_picture; }
    QString sizeText() const { return m_size->text(); }
    const QStringList& warnings() const { return m_warnings; }
    // Null until the picture was opened, and after that window closed.
    QScrollArea* fullSizeWindow() const { return m_fullSize; }

private:
    void openFullSize();
    void showWarnings(const QStringList& warnings);
    void refreshFullSize();

    LabelPictureButton* m_picture;
    QLabel* m_size;
    QWidget* m_warningsBox;
    QVBoxLayout* m_warningRows;
    QStringList m_warnings;
    QPointer<QScrollArea> m_fullSize;
};
