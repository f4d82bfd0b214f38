#pragma once

#include "services/Product.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

// Fills, validates and previews ZPL label templates. Pure text work.
//
// A fill is bounded: values go in verbatim and may hold placeholders that a
// later step expands again, so a hostile catalogue could grow a label to
// gigabytes. A real label is a few kilobytes and a printer's receive buffer
// not much more, so a fill that would pass kMaxLabelBytes (UTF-8) gives
// nothing instead.
class ZPLService
{
public:
    static constexpr qsizetype kMaxLabelBytes = 1024 * 1024;
    // Shown where a label could not be filled for its size.
    static QString labelTooLargeMessage();

    struct Validation
    {
        bool isValid = true;
        QStringList errors;
    };

    // Placeholder text to its Dutch description.
    static const QMap<QString, QString>& placeholders();

    std::optional<QString> generateZPL(const Product& product, const QString& zplTemplate) const;
    Validation validateTemplate(const QString& zplTemplate) const;
    std::optional<QString> previewZPL(const QString& zplTemplate) const;
};
