#include "StyleManager.h"

#include <guicore/Logging_p.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QTime>

const QString StyleManager::SHORT_DATE_FORMAT = QStringLiteral("@SHORT_DATE_FORMAT");
const QString StyleManager::LONG_DATE_FORMAT = QStringLiteral("@LONG_DATE_FORMAT");
const QString StyleManager::DATE_TIME_FORMAT = QStringLiteral("@DATE_TIME_FORMAT");
const QString StyleManager::LONG_DATE_TIME_FORMAT = QStringLiteral("@LONG_DATE_TIME_FORMAT");
const QString StyleManager::DATE_TIME_WITH_SECONDS_FORMAT
    = QStringLiteral("@DATE_TIME_WITH_SECONDS_FORMAT");
const QString StyleManager::TIME_FORMAT = QStringLiteral("@TIME_FORMAT");
const QString StyleManager::DATE_FORMAT = QStringLiteral("@DATE_FORMAT");

StyleManager* StyleManager::manager_instance = nullptr;

StyleManager::StyleManager() = default;

StyleManager::~StyleManager()
{
    if (manager_instance == this)
        manager_instance = nullptr;
}

void StyleManager::createManager(const StyleManagerDataProvider& provider)
{
    if (manager_instance) {
        qCWarning(lcStyle) << "Trying to create the StyleManager twice. This is a flow issue.";
        deleteManager();
    }
    manager_instance = new StyleManager();
    manager_instance->setColorPalette(provider.getColorPalette());
    manager_instance->setSizes(provider.getDimensions());
    manager_instance->setFonts(provider.getFonts());
    manager_instance->setDateTimeFormats(provider.getFormats());
}

void StyleManager::createManager(
    const StyleManagerDataProvider& provider, const CommonDateTimeFormats& formats)
{
    createManager(provider);
    manager_instance->setDateTimeFormats(formats);
}

void StyleManager::deleteManager()
{
    delete manager_instance;
    manager_instance = nullptr;
}

bool StyleManager::hasManager()
{
    return manager_instance != nullptr;
}

StyleManager& StyleManager::manager()
{
    if (!manager_instance) {
        qCWarning(lcStyle) << "Trying to get the StyleManager before calling createManager";
        createManager(StyleManagerDataProvider());
    }
    return *manager_instance;
}

int StyleManager::pixelSize(int size)
{
    return size;
}

QColor StyleManager::getColor(const QString& colorId) const
{
    const QString text = colorPalette.value(colorId);
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : color not found for id" << colorId;
        return QColor(Qt::magenta);
    }
    return QColor(text);
}

QColor StyleManager::getOptionalColor(const QString& colorId) const
{
    return QColor(colorPalette.value(colorId, QStringLiteral("transparent")));
}

bool StyleManager::hasColor(const QString& colorId) const
{
    return colorPalette.contains(colorId);
}

double StyleManager::getSize(const QString& sizeId) const
{
    const QString text = sizes.value(sizeId);
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : size not found for id" << sizeId;
        return 0.0;
    }
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok)
        qCWarning(lcStyle) << "StyleManager : could not properly convert size value" << text
                           << "for id" << sizeId;
    return value;
}

int StyleManager::getFontWeight(const QString& fontWeightId) const
{
    return getIntegerFontProperty(fontWeightId);
}

int StyleManager::getFontSize(const QString& fontSizeId) const
{
    return getIntegerFontProperty(fontSizeId);
}

int StyleManager::getIntegerFontProperty(const QString& fontPropertyId) const
{
    const QString text = fonts.value(fontPropertyId);
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : font property not found for id" << fontPropertyId;
        return 0;
    }
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    if (!ok)
        qCWarning(lcStyle) << "StyleManager : could not properly convert property value" << text
                           << "for id" << fontPropertyId;
    return value;
}

bool StyleManager::getFontBoolValue(const QString& fontBooleanValue) const
{
    const QString text = fonts.value(fontBooleanValue);
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : font property not found for id" << fontBooleanValue;
        return false;
    }
    if (text == QLatin1String("true"))
        return true;
    if (text != QLatin1String("false"))
        qCWarning(lcStyle) << "StyleManager : could not properly convert property value" << text
                           << "for id" << fontBooleanValue;
    return false;
}

QFont StyleManager::getCompleteFont(const QString& fontId) const
{
    const QString text = fonts.value(fontId);
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : font not found for id" << fontId;
        return QFont();
    }
    static const QRegularExpression fontFormat(QStringLiteral("^(\\d*)\\s\"(.*)\"$"));
    const QRegularExpressionMatch match = fontFormat.match(text);
    if (!match.hasMatch()) {
        qCWarning(lcStyle) << "StyleManager : Invalid font format for id" << fontId;
        return QFont();
    }
    QFont font;
    font.setFamily(match.captured(2));
    // An empty digit run converts to 0 and is passed on unchanged; QFont then warns and keeps
    // its default size, which is what styles that give a family alone have always got.
    font.setPixelSize(match.captured(1).toInt(nullptr, 10));
    return font;
}

double StyleManager::getLineHeight(const QString& fontId) const
{
    // Tiny but non-zero, so that a missing line height never collapses a text layout.
    constexpr double fallback = 0.1;
    const QString text = fonts.value(fontId + QStringLiteral("-line-height"));
    if (text.isEmpty()) {
        qCWarning(lcStyle) << "StyleManager : line-height not found for font id" << fontId;
        return fallback;
    }
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok) {
        qCWarning(lcStyle) << "StyleManager : Invalid line-height format for id" << fontId;
        return fallback;
    }
    return value;
}

QString StyleManager::doGetFontFamily(const QString& fontId) const
{
    const QString text = fonts.value(fontId);
    if (text.isEmpty())
        qCWarning(lcStyle) << "StyleManager : font not found for id" << fontId;
    return text;
}

QString StyleManager::getFontFamily(const QString& fontId) const
{
    return doGetFontFamily(fontId);
}

QString StyleManager::getFontFamilyForQml(const QString& fontId) const
{
    return doGetFontFamily(fontId);
}

QString StyleManager::getFontFamilyForQFont(const QString& fontId) const
{
    const QString family = doGetFontFamily(fontId);
    if (family.isEmpty())
        return family;
    // The closing character is dropped unchecked: the style files always close their quotes.
    if (family.front() == QLatin1Char('"'))
        return family.mid(1, family.size() - 2);
    return family;
}

QString StyleManager::getFont(const QString& fontId) const
{
    qCWarning(lcStyle) << "StyleManager::getFont"
                       << " is deprecated. Use getFontFamily instead.";
    return doGetFontFamily(fontId);
}

QString StyleManager::getDateTimeFormat(const QString& formatId) const
{
    const QString format = dateTimeFormats.value(formatId);
    if (format.isEmpty())
        qCWarning(lcStyle) << "StyleManager : format not found for id" << formatId;
    return format;
}

QString StyleManager::getDateFormat(const QString& formatId) const
{
    const QString format = getDateTimeFormat(formatId);
    if (!format.isEmpty())
        return format;
    // The generic date format stands in for any unknown format id.
    return getDateTimeFormat(DATE_FORMAT);
}

QString StyleManager::formatDateTime(const QDateTime& time) const
{
    return formatDateTime(time, DATE_TIME_FORMAT);
}

QString StyleManager::formatLongDateTime(const QDateTime& time) const
{
    return formatDateTime(time, LONG_DATE_TIME_FORMAT);
}

QString StyleManager::formatDateTime(const QDateTime& time, const QString& formatId) const
{
    return QLocale().toString(time, getDateTimeFormat(formatId));
}

QString StyleManager::formatTime(const QTime& time) const
{
    // Through the virtual getter on purpose: a missing time format falls back to the date format.
    return time.toString(getDateFormat(TIME_FORMAT));
}

QString StyleManager::formatTime(const QTime& time, const QString& format) const
{
    return time.toString(format);
}

const QString& StyleManager::getStyleSheet() const
{
    return styleSheet;
}

void StyleManager::setStyleSheet(const QString& styleSheet)
{
    this->styleSheet = styleSheet;
}

void StyleManager::setDateTimeFormats(const CommonDateTimeFormats& formats)
{
    setDateTimeFormat(SHORT_DATE_FORMAT, formats.shortDateFormat);
    setDateTimeFormat(LONG_DATE_FORMAT, formats.longDateFormat);
    setDateTimeFormat(DATE_TIME_FORMAT, formats.dateTimeFormat);
    setDateTimeFormat(LONG_DATE_TIME_FORMAT, formats.longDateTimeFormat);
    setDateTimeFormat(TIME_FORMAT, formats.timeFormat);
}

void StyleManager::setColorPalette(const QHash<QString, QString>& colorPalette)
{
    this->colorPalette = colorPalette;
}

void StyleManager::setSizes(const QHash<QString, QString>& sizes)
{
    this->sizes = sizes;
}

void StyleManager::setFonts(const QHash<QString, QString>& fonts)
{
    this->fonts = fonts;
}

void StyleManager::setDateTimeFormats(const QHash<QString, QString>& dateTimeFormats)
{
    this->dateTimeFormats = dateTimeFormats;
}

const QHash<QString, QString>& StyleManager::getColorPalette() const
{
    return colorPalette;
}

const QHash<QString, QString>& StyleManager::getSizes() const
{
    return sizes;
}

const QHash<QString, QString>& StyleManager::getFonts() const
{
    return fonts;
}

const QHash<QString, QString>& StyleManager::getDateTimeFormats() const
{
    return dateTimeFormats;
}

void StyleManager::setDateTimeFormat(const QString& formatId, const QString& format)
{
    dateTimeFormats.insert(formatId, format);
}
