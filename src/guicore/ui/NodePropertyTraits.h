#pragma once

#include <QHashFunctions>
#include <QJsonArray>
#include <QJsonValue>
#include <QPointF>
#include <QQuaternion>
#include <QRectF>
#include <QString>
#include <QVector3D>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <vector>

namespace ui {

namespace detail {

/// Floating-point equality of the state tree: values that differ only in the twelfth significant
/// digit are the same value (saved states round-trip through text and other builds). Near zero
/// the relative test is meaningless, so an absolute bound of 1e-12 applies there.
inline bool fuzzyEqual(double a, double b)
{
    const double difference = std::abs(a - b);
    if (a == 0.0 || b == 0.0)
        return difference <= 1e-12;
    return difference * 1e12 <= std::min(std::abs(a), std::abs(b));
}

inline bool readNumber(const QJsonValue& value, double& out)
{
    if (!value.isDouble())
        return false;
    out = value.toDouble();
    return std::isfinite(out);
}

/// A JSON number that a float can hold. Larger magnitudes would become infinity, which JSON
/// cannot store: the tree would load but could never be written back.
inline bool readFloat(const QJsonValue& value, float& out)
{
    double number = 0;
    if (!readNumber(value, number)
        || std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        return false;
    out = static_cast<float>(number);
    return true;
}

inline bool readNumberOrFloat(const QJsonValue& value, double& out)
{
    return readNumber(value, out);
}

inline bool readNumberOrFloat(const QJsonValue& value, float& out)
{
    return readFloat(value, out);
}

/// An array of exactly count numbers (doubles or floats, as out is).
template <typename Number> bool readNumbers(const QJsonValue& value, Number* out, int count)
{
    if (!value.isArray())
        return false;
    const QJsonArray array = value.toArray();
    if (array.size() != count)
        return false;
    for (int i = 0; i < count; ++i) {
        if (!readNumberOrFloat(array.at(i), out[i]))
            return false;
    }
    return true;
}

} // namespace detail

/// How one property type is compared and turned into JSON. Every property of every node kind goes
/// through exactly one of these, so setters, comparison and persistence agree. An application
/// that stores a type of its own in a node kind specialises this template for it, with
/// ```
/// static bool equal(const T&, const T&);
/// static QJsonValue toJson(const T&);
/// static bool fromJson(const QJsonValue&, T& out);   // false, out untouched, on bad input
/// ```
/// in namespace ui, visible wherever the kind's property table is built.
template <typename T, typename Enable = void> struct NodePropertyTraits;

/// Traits of bool properties.
template <> struct NodePropertyTraits<bool>
{
    /// @{
    /// Exact; a JSON boolean, and only a JSON boolean is read.
    static bool equal(bool a, bool b) { return a == b; }
    static QJsonValue toJson(bool value) { return value; }
    static bool fromJson(const QJsonValue& json, bool& out)
    {
        if (!json.isBool())
            return false;
        out = json.toBool();
        return true;
    }
    /// @}
};

/// Traits of integer properties (every integral type but bool).
template <typename T>
struct NodePropertyTraits<T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>>>
{
    /// @{
    /// Exact; a JSON number. Reading refuses fractions, values outside T and magnitudes above
    /// 2^53, which a JSON number does not hold exactly.
    static bool equal(T a, T b) { return a == b; }
    static QJsonValue toJson(T value) { return static_cast<double>(value); }
    static bool fromJson(const QJsonValue& json, T& out)
    {
        double number = 0;
        if (!detail::readNumber(json, number) || std::floor(number) != number)
            return false;
        // Integers beyond 2^53 do not survive a JSON number; nothing in the tree is that large.
        const double lowest
            = std::max(static_cast<double>(std::numeric_limits<T>::lowest()), -9007199254740992.0);
        const double highest
            = std::min(static_cast<double>(std::numeric_limits<T>::max()), 9007199254740992.0);
        if (number < lowest || number > highest)
            return false;
        out = static_cast<T>(number);
        return true;
    }
    /// @}
};

/// Traits of enumeration properties.
template <typename T> struct NodePropertyTraits<T, std::enable_if_t<std::is_enum_v<T>>>
{
    /// The integer type that stores the enumeration.
    using Underlying = std::underlying_type_t<T>;
    /// @{
    /// Exact; the underlying integer, stored and read as such.
    static bool equal(T a, T b) { return a == b; }
    static QJsonValue toJson(T value)
    {
        return static_cast<double>(static_cast<Underlying>(value));
    }
    static bool fromJson(const QJsonValue& json, T& out)
    {
        Underlying number {};
        if (!NodePropertyTraits<Underlying>::fromJson(json, number))
            return false;
        out = static_cast<T>(number);
        return true;
    }
    /// @}
};

/// Traits of float properties.
template <> struct NodePropertyTraits<float>
{
    /// @{
    /// Within twelve significant digits (exact near zero: 1e-12); a JSON number. Reading refuses
    /// non-finite numbers and magnitudes a float cannot hold.
    static bool equal(float a, float b) { return detail::fuzzyEqual(a, b); }
    static QJsonValue toJson(float value) { return static_cast<double>(value); }
    static bool fromJson(const QJsonValue& json, float& out)
    {
        return detail::readFloat(json, out);
    }
    /// @}
};

/// Traits of QString properties.
template <> struct NodePropertyTraits<QString>
{
    /// @{
    /// Exact and case-sensitive; a JSON string.
    static bool equal(const QString& a, const QString& b) { return a == b; }
    static QJsonValue toJson(const QString& value) { return value; }
    static bool fromJson(const QJsonValue& json, QString& out)
    {
        if (!json.isString())
            return false;
        out = json.toString();
        return true;
    }
    /// @}
};

/// Traits of QVector3D properties (positions and directions).
template <> struct NodePropertyTraits<QVector3D>
{
    /// @{
    /// Exact per component; the array [x, y, z], of which reading needs exactly three finite
    /// numbers that a float holds.
    // Positions and directions are compared exactly: they are copied, never recomputed.
    static bool equal(const QVector3D& a, const QVector3D& b)
    {
        return a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
    }
    static QJsonValue toJson(const QVector3D& value)
    {
        return QJsonArray {double(value.x()), double(value.y()), double(value.z())};
    }
    static bool fromJson(const QJsonValue& json, QVector3D& out)
    {
        float v[3];
        if (!detail::readNumbers(json, v, 3))
            return false;
        out = QVector3D(v[0], v[1], v[2]);
        return true;
    }
    /// @}
};

/// Traits of QQuaternion properties (rotations).
template <> struct NodePropertyTraits<QQuaternion>
{
    /// @{
    /// Exact per component; the array [scalar, x, y, z], read as for QVector3D.
    static bool equal(const QQuaternion& a, const QQuaternion& b)
    {
        return a.scalar() == b.scalar() && a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
    }
    static QJsonValue toJson(const QQuaternion& value)
    {
        return QJsonArray {
            double(value.scalar()), double(value.x()), double(value.y()), double(value.z())};
    }
    static bool fromJson(const QJsonValue& json, QQuaternion& out)
    {
        float v[4];
        if (!detail::readNumbers(json, v, 4))
            return false;
        out = QQuaternion(v[0], v[1], v[2], v[3]);
        return true;
    }
    /// @}
};

/// Traits of QRectF properties.
template <> struct NodePropertyTraits<QRectF>
{
    /// @{
    /// Each coordinate within twelve significant digits; the array [x, y, width, height] of
    /// finite numbers.
    static bool equal(const QRectF& a, const QRectF& b)
    {
        return detail::fuzzyEqual(a.x(), b.x()) && detail::fuzzyEqual(a.y(), b.y())
            && detail::fuzzyEqual(a.width(), b.width())
            && detail::fuzzyEqual(a.height(), b.height());
    }
    static QJsonValue toJson(const QRectF& value)
    {
        return QJsonArray {value.x(), value.y(), value.width(), value.height()};
    }
    static bool fromJson(const QJsonValue& json, QRectF& out)
    {
        double v[4];
        if (!detail::readNumbers(json, v, 4))
            return false;
        out = QRectF(v[0], v[1], v[2], v[3]);
        return true;
    }
    /// @}
};

/// Traits of point-list properties.
template <> struct NodePropertyTraits<std::vector<QPointF>>
{
    /// @{
    /// Same length and every coordinate within twelve significant digits; an array of [x, y]
    /// arrays. A malformed point refuses the whole list.
    static bool equal(const std::vector<QPointF>& a, const std::vector<QPointF>& b)
    {
        if (a.size() != b.size())
            return false;
        for (size_t i = 0; i < a.size(); ++i) {
            if (!detail::fuzzyEqual(a[i].x(), b[i].x()) || !detail::fuzzyEqual(a[i].y(), b[i].y()))
                return false;
        }
        return true;
    }
    static QJsonValue toJson(const std::vector<QPointF>& value)
    {
        QJsonArray array;
        for (const QPointF& point : value)
            array.append(QJsonArray {point.x(), point.y()});
        return array;
    }
    static bool fromJson(const QJsonValue& json, std::vector<QPointF>& out)
    {
        if (!json.isArray())
            return false;
        std::vector<QPointF> points;
        for (const QJsonValue& item : json.toArray()) {
            double v[2];
            if (!detail::readNumbers(item, v, 2))
                return false;
            points.emplace_back(v[0], v[1]);
        }
        out = std::move(points);
        return true;
    }
    /// @}
};

/// An empty optional is JSON null.
template <typename T> struct NodePropertyTraits<std::optional<T>>
{
    /// @{
    /// Both empty, or both set and equal by the traits of T; JSON null when empty, else as T.
    static bool equal(const std::optional<T>& a, const std::optional<T>& b)
    {
        if (a.has_value() != b.has_value())
            return false;
        return !a.has_value() || NodePropertyTraits<T>::equal(*a, *b);
    }
    static QJsonValue toJson(const std::optional<T>& value)
    {
        return value ? NodePropertyTraits<T>::toJson(*value) : QJsonValue(QJsonValue::Null);
    }
    static bool fromJson(const QJsonValue& json, std::optional<T>& out)
    {
        if (json.isNull()) {
            out.reset();
            return true;
        }
        T value {};
        if (!NodePropertyTraits<T>::fromJson(json, value))
            return false;
        out = std::move(value);
        return true;
    }
    /// @}
};

namespace detail {

/// Kinds compared within a tolerance (see fuzzyEqual); every other kind compares exactly.
template <typename T>
struct IsTolerant
    : std::bool_constant<
          std::is_floating_point_v<
              T> || std::is_same_v<T, QRectF> || std::is_same_v<T, std::vector<QPointF>>>
{
};
template <typename T> struct IsTolerant<std::optional<T>> : IsTolerant<T>
{
};

/// A hash of a value as it is stored. For the exactly compared kinds equal values hash alike
/// (qHash(float) maps -0 to 0); for the tolerant kinds only identical values do, since nearly
/// equal values must not be told apart. Kinds without a hash give 0.
template <typename T> size_t valueHash(const T& value)
{
    if constexpr (std::is_integral_v<
                      T> || std::is_floating_point_v<T> || std::is_same_v<T, QString>)
        return qHash(value);
    else if constexpr (std::is_enum_v<T>)
        return qHash(static_cast<std::underlying_type_t<T>>(value));
    else if constexpr (std::is_same_v<T, QVector3D>)
        return qHashMulti(0, value.x(), value.y(), value.z());
    else if constexpr (std::is_same_v<T, QQuaternion>)
        return qHashMulti(0, value.scalar(), value.x(), value.y(), value.z());
    else if constexpr (std::is_same_v<T, QRectF>)
        return qHashMulti(0, value.x(), value.y(), value.width(), value.height());
    else if constexpr (std::is_same_v<T, std::vector<QPointF>>) {
        size_t hash = value.size();
        for (const QPointF& point : value)
            hash = qHashMulti(hash, point.x(), point.y());
        return hash;
    } else
        return 0;
}

template <typename T> size_t valueHash(const std::optional<T>& value)
{
    return value ? valueHash(*value) * 31 + 1 : 0;
}

} // namespace detail

} // namespace ui
