#include "app/VersionComparator.h"

#include <QList>
#include <algorithm>

namespace {

struct Component
{
    bool isNumber = false;
    QStringView text;
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Runs of digits and runs of letters; everything else only separates them.
QList<Component> split(QStringView version)
{
    QList<Component> components;
    for (qsizetype index = 0; index < version.size();) {
        const bool number = isDigit(version[index]);
        qsizetype end = index;
        while (end < version.size() && (number ? isDigit(version[end]) : version[end].isLetter()))
            ++end;
        if (end > index)
            components.append({number, version.sliced(index, end - index)});
        index = std::max(end, index + 1);
    }
    return components;
}

// Digit strings of any length, without converting them to a bounded integer.
std::strong_ordering compareNumbers(QStringView left, QStringView right)
{
    while (left.size() > 1 && left.front() == u'0')
        left = left.sliced(1);
    while (right.size() > 1 && right.front() == u'0')
        right = right.sliced(1);
    if (left.size() != right.size())
        return left.size() <=> right.size();
    return left.compare(right) <=> 0;
}

// A component the other version lacks counts as a zero: neutral against zeros,
// older against a further number and newer against a further tag.
std::strong_ordering compareSequences(const QList<Component>& left, const QList<Component>& right)
{
    const Component zero{true, u"0"};
    for (qsizetype index = 0; index < std::max(left.size(), right.size()); ++index) {
        const Component& l = index < left.size() ? left[index] : zero;
        const Component& r = index < right.size() ? right[index] : zero;
        std::strong_ordering order = l.isNumber <=> r.isNumber;
        if (l.isNumber && r.isNumber)
            order = compareNumbers(l.text, r.text);
        else if (l.isNumber == r.isNumber)
            order = l.text.compare(r.text, Qt::CaseInsensitive) <=> 0;
        if (order != 0)
            return order;
    }
    return std::strong_ordering::equal;
}

// The leading numbers; everything from the first letters on is the pre-release tag.
qsizetype releaseLength(const QList<Component>& components)
{
    return std::find_if(components.cbegin(), components.cend(),
                        [](const Component& component) { return !component.isNumber; }) -
           components.cbegin();
}

} // namespace

std::strong_ordering VersionComparator::compare(QStringView left, QStringView right)
{
    const QList<Component> leftAll = split(left);
    const QList<Component> rightAll = split(right);
    const qsizetype leftRelease = releaseLength(leftAll);
    const qsizetype rightRelease = releaseLength(rightAll);
    const std::strong_ordering release =
        compareSequences(leftAll.first(leftRelease), rightAll.first(rightRelease));
    if (release != 0)
        return release;
    // Without a tag is the release itself, which comes after its pre-releases.
    const QList<Component> leftTag = leftAll.sliced(leftRelease);
    const QList<Component> rightTag = rightAll.sliced(rightRelease);
    if (leftTag.isEmpty() || rightTag.isEmpty())
        return rightTag.size() <=> leftTag.size();
    return compareSequences(leftTag, rightTag);
}
