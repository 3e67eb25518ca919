#include <guicore/GuiCoreVersion.h>
#include <objectmodel/StringConversions.h>
#include <toothchart/DentalNotationConvertor.h>

#include <QCoreApplication>
#include <QKeySequence>
#include <QString>
#include <QTextStream>

// Uses a class of the library and of two sibling libraries, so that linking proves the package
// exports them all with working include directories.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QString fdi
        = DentalNotationConvertor::getFdiNotationForToothType(ToothChart::Tooth(8), false);
    const QString suffix
        = StringConversions::qkeySequencesToAppendableString({QKeySequence("Ctrl+S")});
    QTextStream(stdout) << "GuiCore " << guicore::versionString() << " tooth 8 is " << fdi << suffix
                        << Qt::endl;
    return fdi == QLatin1String("11") && !guicore::versionString().isEmpty() ? 0 : 1;
}
