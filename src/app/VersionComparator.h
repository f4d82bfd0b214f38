#pragma once

#include <QStringView>
#include <compare>

// Orders version texts the way release feeds number them: numeric components
// compare as numbers (1.10 after 1.9), missing trailing components count as
// zero (1.0 equals 1.0.0), and a text suffix marks a pre-release that comes
// before the plain release (2.0b1 before 2.0, 2.0b2 before 2.0rc1).
class VersionComparator
{
public:
    VersionComparator() = delete;

    static std::strong_ordering compare(QStringView left, QStringView right);
};
