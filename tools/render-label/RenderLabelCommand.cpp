#include "RenderLabelCommand.h"

#include "LabelPreview.h"
#include "LabelRenderer.h"
#include "LabelWarnings.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Failure
{
    QString message;
};

QByteArray readInput(const QString& path)
{
    QFile file;
    const bool opened = path == u"-" ? file.open(stdin, QIODevice::ReadOnly)
                                     : (file.setFileName(path), file.open(QIODevice::ReadOnly));
    if (!opened)
        throw Failure{u"Kan %1 niet lezen: %2"_s.arg(path, file.errorString())};
    const QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Failure{u"Kan %1 niet lezen: %2"_s.arg(path, file.errorString())};
    return data;
}

Product readProduct(const QString& path)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(readInput(path), &parseError);
    if (parseError.error != QJsonParseError::NoError)
        throw Failure{u"Product %1 is geen JSON: %2"_s.arg(path, parseError.errorString())};
    QString error;
    const std::optional<Product> product = Product::fromJson(document.object(), &error);
    if (!document.isObject() || !product)
        throw Failure{u"Product %1 is ongeldig: %2"_s.arg(path, error)};
    return *product;
}

// One PNG for one label; a text with more labels gets -2, -3, ... names.
QString outputName(const QString& output, qsizetype index)
{
    if (index == 0)
        return output;
    const QFileInfo info(output);
    return info.dir().filePath(
        u"%1-%2.%3"_s.arg(info.completeBaseName()).arg(index + 1).arg(info.suffix()));
}

// Every picture goes to a temporary file first; the outputs appear only when
// all were written, so a failure leaves none of them behind.
void writePngs(const QList<RenderedLabel>& labels, const QString& output)
{
    std::vector<std::unique_ptr<QSaveFile>> files;
    for (qsizetype i = 0; i < labels.size(); ++i) {
        auto& file = files.emplace_back(std::make_unique<QSaveFile>(outputName(output, i)));
        if (!file->open(QIODevice::WriteOnly) || !labels.at(i).image.save(file.get(), "PNG"))
            throw Failure{
                u"Kan %1 niet schrijven: %2"_s.arg(file->fileName(), file->errorString())};
    }
    for (qsizetype i = 0; i < qsizetype(files.size()); ++i) {
        if (files.at(i)->commit())
            continue;
        for (qsizetype done = 0; done < i; ++done)
            QFile::remove(files.at(done)->fileName());
        throw Failure{u"Kan %1 niet schrijven: %2"_s.arg(files.at(i)->fileName(),
                                                         files.at(i)->errorString())};
    }
}

int runParsed(const QCommandLineParser& parser, QTextStream& errors)
{
    bool dotsOk = false;
    const int dotsPerMm = parser.value(u"dpmm"_s).toInt(&dotsOk);
    if (!dotsOk || !LabelRenderer::isSupportedDotsPerMm(dotsPerMm))
        throw Failure{u"--dpmm moet 6, 8, 12 of 24 zijn."_s};
    if (parser.positionalArguments().size() != 1 || !parser.isSet(u"o"_s))
        throw Failure{u"Gebruik: stampix-render-label [opties] BESTAND|- -o UIT.png"_s};
    if (parser.isSet(u"product"_s) && parser.isSet(u"sample"_s))
        throw Failure{u"--product en --sample gaan niet samen."_s};

    const QString zplTemplate = QString::fromUtf8(readInput(parser.positionalArguments().first()));
    std::optional<Product> product;
    if (parser.isSet(u"product"_s))
        product = readProduct(parser.value(u"product"_s));

    const LabelRenderer renderer(dotsPerMm);
    LabelPreview preview;
    if (product || parser.isSet(u"sample"_s)) {
        preview = LabelPreview::make(renderer, zplTemplate, product ? &*product : nullptr);
    } else {
        // The text is printed as it is: its own values, nothing filled in.
        preview.zpl = zplTemplate;
        preview.rendering = renderer.render(zplTemplate);
        const Product none;
        preview.warnings = LabelWarnings::check(zplTemplate, &none, preview.rendering);
    }
    if (preview.rendering.labels.isEmpty())
        throw Failure{u"Geen etiket gevonden (^XA...^XZ)."_s};

    for (const QString& warning : preview.warnings)
        errors << u"Waarschuwing: "_s << warning << Qt::endl;
    for (const QString& note : preview.rendering.notes)
        errors << u"Let op: "_s << note << Qt::endl;
    writePngs(preview.rendering.labels, parser.value(u"o"_s));
    return 0;
}

} // namespace

int RenderLabelCommand::run(const QStringList& arguments, QTextStream& errors)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Tekent een ZPL-etiket als PNG, zonder printer."_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"dpmm"_s, u"Printerresolutie in punten per mm: 6, 8, 12 of 24."_s, u"N"_s, u"8"_s},
        {u"product"_s, u"Vul het sjabloon met dit product (JSON-object)."_s, u"FILE"_s},
        {u"sample"_s, u"Vul het sjabloon met de voorbeeldwaarden."_s},
        {u"o"_s, u"Het PNG-bestand dat geschreven wordt."_s, u"OUT.png"_s},
    });
    parser.addPositionalArgument(u"FILE"_s, u"ZPL-bestand, of - voor standaardinvoer."_s);
    if (!parser.parse(arguments)) {
        errors << parser.errorText() << Qt::endl;
        return 2;
    }
    if (parser.isSet(u"help"_s)) {
        errors << parser.helpText();
        return 0;
    }
    try {
        return runParsed(parser, errors);
    } catch (const Failure& failure) {
        errors << failure.message << Qt::endl;
        return 1;
    }
}
