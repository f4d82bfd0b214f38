#pragma once

#include <QAbstractButton>
#include <QImage>

// A label picture, scaled down to the width it gets (never enlarged), inside
// a thin edge. A click, Return or the space bar presses it.
class LabelPictureButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LabelPictureButton(QWidget* parent = nullptr);

    const QImage& image() const { return m_image; }
    void setImage(const QImage& image);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRect pictureRect(int width) const;

    QImage m_image;
};
