#include "app/VersionComparator.h"

#include <QList>
#include <algorithm>
#include <span>

namespace {

struct Component
{
    bool isNumber = false;
    QStringView text;
};

using Components = std::span<const Component>;

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Runs of digits and runs of letters; everything else only separates them.
QList<Component> split(QStringView version)
{
    QList<Component> components;
    qsizetype index = 0;
    while (index < version.size()) {
        const QChar first = version[index];
        if (!isDigit(first) && !first.isLetter()) {
            ++index;
            continue;
        }
        const bool number = isDigit(first);
        const qsizetype start = index;
        while (index < version.size() &&
               (number ? isDigit(version[index]) : version[index].isLetter()))
            ++index;
        components.append({number, version.sliced(start, index - start)});
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

std::strong_ordering compareComponents(const Component& left, const Component& right)
{
    if (left.isNumber && right.isNumber)
        return compareNumbers(left.text, right.text);
    if (left.isNumber != right.isNumber)
        return left.isNumber ? std::strong_ordering::greater : std::strong_ordering::less;
    return left.text.compare(right.text, Qt::CaseInsensitive) <=> 0;
}

// How a component that the other version lacks weighs: zeros are neutral, a
// further number makes its version newer, a further tag older.
std::strong_ordering compareWithMissing(const Component& component)
{
    if (!component.isNumber)
        return std::strong_ordering::less;
    return compareNumbers(component.text, u"0");
}

std::strong_ordering compareSequences(Components left, Components right)
{
    const size_t count = std::max(left.size(), right.size());
    for (size_t index = 0; index < count; ++index) {
        std::strong_ordering order = std::strong_ordering::equal;
        if (index < left.size() && index < right.size())
            order = compareComponents(left[index], right[index]);
        else if (index < left.size())
            order = compareWithMissing(left[index]);
        else
            order = 0 <=> compareWithMissing(right[index]);
        if (order != 0)
            return order;
    }
    return std::strong_ordering::equal;
}

// The leading numbers; everything from the first letters on is the
// pre-release tag.
size_t releaseLength(Components components)
{
    const auto tag = std::find_if(components.begin(), components.end(),
                                  [](const Component& component) { return !component.isNumber; });
    return size_t(tag - components.begin());
}

} // namespace

std::strong_ordering VersionComparator::compare(QStringView left, QStringView right)
{
    const QList<Component> leftList = split(left);
    const QList<Component> rightList = split(right);
    const Components leftAll(leftList.constData(), size_t(leftList.size()));
    const Components rightAll(rightList.constData(), size_t(rightList.size()));
    const size_t leftRelease = releaseLength(leftAll);
    const size_t rightRelease = releaseLength(rightAll);

    const std::strong_ordering release =
        compareSequences(leftAll.first(leftRelease), rightAll.first(rightRelease));
    if (release != 0)
        return release;

    // Without a tag is the release itself, which comes after its pre-releases.
    const Components leftTag = leftAll.subspan(leftRelease);
    const Components rightTag = rightAll.subspan(rightRelease);
    if (leftTag.empty() || rightTag.empty())
        return rightTag.size() <=> leftTag.size();
    return compareSequences(leftTag, rightTag);
}
