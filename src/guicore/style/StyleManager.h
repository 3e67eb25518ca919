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
///
/// The warnings go to the category "guicore.style"; each is the text quoted below followed by
/// the offending id in double quotes, for example `StyleManager : color not found for id "@X"`.
///
/// Make the singleton once at start-up with createManager(), before any widget or item asks for
/// a value, and release it with deleteManager() at shut-down. It has no signals: the style is
/// fixed for the life of the singleton. The getters marked Q_INVOKABLE can be called from QML
/// once the application exposes the manager (for example as a context property). GUI thread
/// only: the singleton pointer and the maps are unguarded.
class GUICORE_EXPORT StyleManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(StyleManager)

public:
    /// @{
    /// Reserved format ids: "@SHORT_DATE_FORMAT", "@LONG_DATE_FORMAT", "@DATE_TIME_FORMAT",
    /// "@LONG_DATE_TIME_FORMAT", "@DATE_TIME_WITH_SECONDS_FORMAT", "@TIME_FORMAT" and
    /// "@DATE_FORMAT". All but the last two can be overridden with CommonDateTimeFormats;
    /// "@DATE_FORMAT" is the fallback of getDateFormat().
    static const QString SHORT_DATE_FORMAT;
    static const QString LONG_DATE_FORMAT;
    static const QString DATE_TIME_FORMAT;
    static const QString LONG_DATE_TIME_FORMAT;
    static const QString DATE_TIME_WITH_SECONDS_FORMAT;
    static const QString TIME_FORMAT;
    static const QString DATE_FORMAT;
    /// @}

    /// Makes an empty manager; does not install it as the singleton. No parent, the caller owns it.
    StyleManager();
    /// Clears the singleton pointer when this manager is the singleton.
    ~StyleManager() override;

    /// Builds the singleton from the provider, which reads its resources during the call. A
    /// second call replaces the first instance, with the warning "Trying to create the
    /// StyleManager twice. This is a flow issue.": pointers to the old instance dangle afterwards.
    static void createManager(const StyleManagerDataProvider& provider);
    /// As above, then the five given formats override those of the format resources.
    static void createManager(
        const StyleManagerDataProvider& provider, const CommonDateTimeFormats& formats);
    /// Destroys the singleton, if any; references obtained from manager() dangle afterwards.
    static void deleteManager();
    /// Whether the singleton exists; never creates it.
    static bool hasManager();
    /// The singleton. Before `createManager` it is created from the default resources, with the
    /// warning "Trying to get the StyleManager before calling createManager". The manager stays
    /// owned by the class; release it with `deleteManager`.
    static StyleManager& manager();

    /// Deliberately the identity: the one place where style pixel sizes would be scaled.
    Q_INVOKABLE static int pixelSize(int size);

    /// The colour as QColor parses the text ("#rrggbb", "#aarrggbb", SVG names,
    /// "transparent"). Missing: "StyleManager : color not found for id" and Qt::magenta.
    /// Virtual, so that a test double can serve colours of its own.
    Q_INVOKABLE virtual QColor getColor(const QString& colorId) const;
    /// "transparent" for a missing id, without a warning; an empty value gives an invalid colour.
    Q_INVOKABLE QColor getOptionalColor(const QString& colorId) const;
    /// True when the id is present, even with an empty value.
    bool hasColor(const QString& colorId) const;
    /// The size as a number, in the unit the style gives it (pixels for widget metrics).
    /// Missing: "StyleManager : size not found for id" and 0.0. Not a number: "StyleManager :
    /// could not properly convert size value", the text, "for id", the id; and 0.0.
    Q_INVOKABLE virtual double getSize(const QString& sizeId) const;
    /// @{
    /// The font property as a base-10 integer; the two names are one operation. Missing:
    /// "StyleManager : font property not found for id" and 0. Not an integer: "StyleManager :
    /// could not properly convert property value", the text, "for id", the id; and 0.
    Q_INVOKABLE int getFontWeight(const QString& fontWeightId) const;
    Q_INVOKABLE int getFontSize(const QString& fontSizeId) const;
    /// @}
    /// Only the exact texts "true" and "false" are understood; anything else gives false with
    /// the conversion warning of getFontSize(). Missing: "StyleManager : font property not found
    /// for id" and false.
    Q_INVOKABLE bool getFontBoolValue(const QString& fontBooleanValue) const;
    /// The value must read `<pixel size> "<family>"`; the pixel size may be left out, but not
    /// the blank before the family. Without digits the pixel size 0 is passed on, on which QFont
    /// warns and keeps its default size. Missing: "StyleManager : font not found for id"; not in
    /// that form: "StyleManager : Invalid font format for id"; both give a default QFont.
    Q_INVOKABLE QFont getCompleteFont(const QString& fontId) const;
    /// Reads the entry fontId + "-line-height"; 0.1 when it is missing ("StyleManager :
    /// line-height not found for font id") or not a number ("StyleManager : Invalid line-height
    /// format for id"). The tiny non-zero fallback keeps a text layout from collapsing.
    Q_INVOKABLE double getLineHeight(const QString& fontId) const;
    /// The family text as written in the style, quotes included. Missing: "StyleManager : font
    /// not found for id" and an empty text.
    Q_INVOKABLE QString getFontFamily(const QString& fontId) const;
    /// The same as getFontFamily(): QML takes the quoted text as it is.
    QString getFontFamilyForQml(const QString& fontId) const;
    /// The family without its surrounding quotes, ready for `QFont::setFamily`. A value that
    /// starts with a quote loses its last character whatever it is.
    QString getFontFamilyForQFont(const QString& fontId) const;
    /// Deprecated alias of `getFontFamily`; warns on every call, with a message made of
    /// "StyleManager::getFont" and " is deprecated. Use getFontFamily instead.".
    Q_INVOKABLE QString getFont(const QString& fontId) const;
    /// Falls back to "@DATE_FORMAT" for an unknown id, so an unknown id logs "StyleManager :
    /// format not found for id" once for itself and once more for "@DATE_FORMAT" if that is
    /// missing too (then the result is empty).
    Q_INVOKABLE virtual QString getDateFormat(const QString& formatId) const;
    /// @{
    /// time in the default QLocale with the "@DATE_TIME_FORMAT", or the
    /// "@LONG_DATE_TIME_FORMAT", format; a missing format logs "StyleManager : format not found
    /// for id" and formats with an empty pattern. No fallback to "@DATE_FORMAT" here.
    Q_INVOKABLE QString formatDateTime(const QDateTime& time) const;
    Q_INVOKABLE QString formatLongDateTime(const QDateTime& time) const;
    /// @}
    /// time with the "@TIME_FORMAT" format through getDateFormat(), so a missing time format
    /// deliberately falls back to "@DATE_FORMAT". QTime::toString, no locale involved.
    Q_INVOKABLE QString formatTime(const QTime& time) const;
    /// time with the given pattern (QTime::toString); the style is not consulted.
    QString formatTime(const QTime& time, const QString& format) const;
    /// The text setStyleSheet() stored last; empty at first.
    const QString& getStyleSheet() const;

    /// Stores the text only; the manager never applies it to the application.
    void setStyleSheet(const QString& styleSheet);
    /// Overwrites the five common ids, empty strings included.
    void setDateTimeFormats(const CommonDateTimeFormats& formats);

protected:
    /// @{
    /// Replaces the whole map of colours, sizes, font properties or date/time formats, by id;
    /// for derived managers and test doubles. createManager() fills the singleton with them.
    void setColorPalette(const QHash<QString, QString>& colorPalette);
    void setSizes(const QHash<QString, QString>& sizes);
    void setFonts(const QHash<QString, QString>& fonts);
    void setDateTimeFormats(const QHash<QString, QString>& dateTimeFormats);
    /// @}

    /// @{
    /// The maps as stored, by id, the value texts unconverted.
    const QHash<QString, QString>& getColorPalette() const;
    const QHash<QString, QString>& getSizes() const;
    const QHash<QString, QString>& getFonts() const;
    const QHash<QString, QString>& getDateTimeFormats() const;
    /// @}

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
