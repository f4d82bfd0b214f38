#pragma once

#include <QWidget>

// A label row (icon and text) above its input, as the editor pages use it.
class LabelledField : public QWidget
{
    Q_OBJECT

public:
    LabelledField(const QString& symbolName, const QString& label, QWidget* input,
                  QWidget* parent = nullptr);
};
