#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

namespace nubo {

// Enumerations that reach storage keep their case names as strings. Each one
// specialises EnumNames with its names in declaration order:
//
//   template <> struct EnumNames<ShapeVariant> {
//       static constexpr std::array names{"rect", "filledRect", "ellipse"};
//   };
template <class E> struct EnumNames;

template <class E> constexpr std::size_t enumCount()
{
    return EnumNames<E>::names.size();
}

template <class E> QString toString(E value)
{
    const auto index = static_cast<std::size_t>(value);
    Q_ASSERT(index < enumCount<E>());
    return QString::fromLatin1(EnumNames<E>::names[index]);
}

template <class E> std::optional<E> fromString(QStringView text)
{
    const auto& names = EnumNames<E>::names;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (text == QLatin1String(names[i])) {
            return static_cast<E>(i);
        }
    }
    return std::nullopt;
}

template <class E> constexpr std::array<E, EnumNames<E>::names.size()> allCases()
{
    std::array<E, EnumNames<E>::names.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        cases[i] = static_cast<E>(i);
    }
    return cases;
}

} // namespace nubo
