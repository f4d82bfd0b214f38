#pragma once

#include "services/Product.h"

#include <QByteArray>
#include <QList>

// A deterministic shop catalogue of any size: product i is computed from i
// alone, so every run and every size measures the same kind of data. Article
// numbers mix letters with unpadded digit runs, so the numeric collation has
// real work to do.
class BenchCatalogue
{
public:
    // Computed once per size and kept for the run.
    static const QList<Product>& products(qsizetype count);
    // The product service's envelope around products(count), as the service sends it.
    static const QByteArray& envelope(qsizetype count);
    // A query that narrows step by step on this catalogue: "t", "th", ... "theel".
    static constexpr char16_t kQuery[] = u"theel";

private:
    static Product product(qsizetype index);
    static QByteArray makeEnvelope(const QList<Product>& products);
};
