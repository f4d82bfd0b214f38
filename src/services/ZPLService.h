#pragma once

#include "Product.h"

#include <QMap>
#include <QString>
#include <QStringList>

// Fills, validates and previews ZPL label templates. Pure text work.
class ZPLService
{
public:
    struct Validation
    {
        bool isValid = true;
        QStringList errors;
    };

    // Placeholder text to its Dutch description.
    static const QMap<QString, QString>& placeholders();

    QString generateZPL(const Product& product, const QString& zplTemplate) const;
    Validation validateTemplate(const QString& zplTemplate) const;
    QString previewZPL(const QString& zplTemplate) const;
};
