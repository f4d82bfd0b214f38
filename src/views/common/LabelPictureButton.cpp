#include "views/common/LabelPictureButton.h"

#include "views/common/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kEdge = 2; // the edge line and the focus mark share it
constexpr QSize kMinimumPicture{48, 32};

} // namespace

LabelPictureButton::LabelPictureButton(QWidget* parent) : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void LabelPictureButton::setImage(const QImage& image)
{
    m_image = image;
    updateGeometry();
    update();
}

QSize LabelPictureButton::sizeHint() const
{
    return m_image.size() + QSize(2 * kEdge, 2 * kEdge);
}

QSize LabelPictureButton::minimumSizeHint() const
{
    return kMinimumPicture.boundedTo(sizeHint());
}

int LabelPictureButton::heightForWidth(int width) const
{
    return pictureRect(width).height() + 2 * kEdge;
}

QRect LabelPictureButton::pictureRect(int width) const
{
    if (m_image.isNull())
        return {kEdge, kEdge, 0, 0};
    const int room = qMax(1, width - 2 * kEdge);
    const qreal scale = qMin<qreal>(1, qreal(room) / m_image.width());
    const QSize size(qMax(1, qRound(m_image.width() * scale)),
                     qMax(1, qRound(m_image.height() * scale)));
    return {QPoint(kEdge, kEdge), size};
}

void LabelPictureButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect picture = pictureRect(width());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(picture, m_image);
    const QRect edge = picture.adjusted(-1, -1, 0, 0);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), kEdge));
        painter.drawRect(QRectF(picture).adjusted(-1, -1, 1, 1));
    } else {
        painter.setPen(palette().color(Theme::kSecondaryText));
        painter.drawRect(edge);
    }
}

void LabelPictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
