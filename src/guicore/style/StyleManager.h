#pragma once

#include <guicore/guicore_export.h>
#include <guicore/style/CommonDateTimeFormats.h>

#include <QColor>
#include <QFont>
#include <QHash>
#include <QObject>
#include <QString>

class QDateTime;
class QTime;
class StyleManagerDataProvider;

/// Process-wide source of the application's look: named colours, sizes, font properties and
/// date/time formats, plus one style sheet text.
///
/// Values are kept as the text the style resources gave and converted on every call. A missing
/// or unusable value never fails: the getter logs one warning naming the id and returns a neutral
/// value (magenta for colours, so that a missing colour is visible on screen). An entry that is
/// present with an empty value counts as missing everywhere except in `hasColor` and
/// `getOptionalColor`.
class GUICORE_EXPORT StyleManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(StyleManager)

public:
    /// Reserved format ids.
    static const QString SHORT_DATE_FORMAT;
    static const QString LONG_DATE_FORMAT;
    static const QString DATE_TIME_FORMAT;
    static const QString LONG_DATE_TIME_FORMAT;
    static const QString DATE_TIME_WITH_SECONDS_FORMAT;
    static const QString TIME_FORMAT;
    static const QString DATE_FORMAT;

    /// Makes an empty manager; does not install it as the singleton. No parent, the caller owns it.
    StyleManager();
    ~StyleManager() override;

    /// Builds the singleton from the provider. A second call replaces the first instance (with a
    /// warning, because it is a flow error): pointers to the old instance dangle afterwards.
    static void createManager(const StyleManagerDataProvider& provider);
    /// As above, then the five given formats override those of the format resources.
    static void createManager(
        const StyleManagerDataProvider& provider, const CommonDateTimeFormats& formats);
    static void deleteManager();
    static bool hasManager();
    /// The singleton. Before `createManager` it is created from the default resources, with a
    /// warning. The manager stays owned by the class; release it with `deleteManager`.
    static StyleManager& manager();

    /// Deliberately the identity: the one place where style pixel sizes would be scaled.
    Q_INVOKABLE static int pixelSize(int size);

    Q_INVOKABLE virtual QColor getColor(const QString& colorId) const;
    /// "transparent" for a missing id, without a warning; an empty value gives an invalid colour.
    Q_INVOKABLE QColor getOptionalColor(const QString& colorId) const;
    bool hasColor(const QString& colorId) const;
    Q_INVOKABLE virtual double getSize(const QString& sizeId) const;
    Q_INVOKABLE int getFontWeight(const QString& fontWeightId) const;
    Q_INVOKABLE int getFontSize(const QString& fontSizeId) const;
    /// Only the exact texts "true" and "false" are understood.
    Q_INVOKABLE bool getFontBoolValue(const QString& fontBooleanValue) const;
    /// The value must read `<pixel size> "<family>"`; the pixel size may be left out, but not
    /// the blank before the family.
    Q_INVOKABLE QFont getCompleteFont(const QString& fontId) const;
    /// Reads the entry fontId + "-line-height"; 0.1 when it is missing or not a number.
    Q_INVOKABLE double getLineHeight(const QString& fontId) const;
    /// The family text as written in the style, quotes included.
    Q_INVOKABLE QString getFontFamily(const QString& fontId) const;
    QString getFontFamilyForQml(const QString& fontId) const;
    /// The family without its surrounding quotes, ready for `QFont::setFamily`.
    QString getFontFamilyForQFont(const QString& fontId) const;
    /// Deprecated alias of `getFontFamily`; warns on every call.
    Q_INVOKABLE QString getFont(const QString& fontId) const;
    /// Falls back to "@DATE_FORMAT" for an unknown id (logging the unknown id first).
    Q_INVOKABLE virtual QString getDateFormat(const QString& formatId) const;
    Q_INVOKABLE QString formatDateTime(const QDateTime& time) const;
    Q_INVOKABLE QString formatLongDateTime(const QDateTime& time) const;
    Q_INVOKABLE QString formatTime(const QTime& time) const;
    QString formatTime(const QTime& time, const QString& format) const;
    const QString& getStyleSheet() const;

    /// Stores the text only; the manager never applies it to the application.
    void setStyleSheet(const QString& styleSheet);
    /// Overwrites the five common ids, empty strings included.
    void setDateTimeFormats(const CommonDateTimeFormats& formats);

protected:
    void setColorPalette(const QHash<QString, QString>& colorPalette);
    void setSizes(const QHash<QString, QString>& sizes);
    void setFonts(const QHash<QString, QString>& fonts);
    void setDateTimeFormats(const QHash<QString, QString>& dateTimeFormats);

    const QHash<QString, QString>& getColorPalette() const;
    const QHash<QString, QString>& getSizes() const;
    const QHash<QString, QString>& getFonts() const;
    const QHash<QString, QString>& getDateTimeFormats() const;

private:
    virtual QString doGetFontFamily(const QString& fontId) const;
    virtual int getIntegerFontProperty(const QString& fontPropertyId) const;

    QString getDateTimeFormat(const QString& formatId) const;
    QString formatDateTime(const QDateTime& time, const QString& formatId) const;
    void setDateTimeFormat(const QString& formatId, const QString& format);

    static StyleManager* manager_instance;

    QString styleSheet;
    QHash<QString, QString> colorPalette;
    QHash<QString, QString> sizes;
    QHash<QString, QString> fonts;
    QHash<QString, QString> dateTimeFormats;
};
