#include "RenderLabelCommand.h"

#include "labelrender/LabelPreview.h"
#include "labelrender/LabelRenderer.h"
#include "labelrender/LabelWarnings.h"
#include "services/ZPLService.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

struct Failure
{
    QString message;
};

// A label text is at most 1 MiB, as printing fills it; a product holds five
// values of at most that each, with room for the JSON around them.
constexpr qint64 kMaxTemplateBytes = ZPLService::kMaxLabelBytes;
constexpr qint64 kMaxProductBytes = 8 * ZPLService::kMaxLabelBytes;

QByteArray readInput(const QString& path, qint64 maxBytes)
{
    QFile file;
    const bool opened = path == u"-" ? file.open(stdin, QIODevice::ReadOnly)
                                     : (file.setFileName(path), file.open(QIODevice::ReadOnly));
    if (!opened)
        throw Failure{u"Kan %1 niet lezen: %2"_s.arg(path, file.errorString())};
    // A pipe hands its bytes over in pieces; one read may see only the first.
    QByteArray data;
    while (data.size() <= maxBytes) {
        const QByteArray piece = file.read(maxBytes + 1 - data.size());
        if (piece.isEmpty())
            break;
        data += piece;
    }
    if (file.error() != QFileDevice::NoError)
        throw Failure{u"Kan %1 niet lezen: %2"_s.arg(path, file.errorString())};
    if (data.size() > maxBytes)
        throw Failure{u"%1 is groter dan %2 MiB."_s.arg(path).arg(maxBytes / (1024 * 1024))};
    return data;
}

Product readProduct(const QString& path)
{
    QJsonParseError parseError;
    const QJsonDocument document =
        QJsonDocument::fromJson(readInput(path, kMaxProductBytes), &parseError);
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

QString cannotWrite(const QString& path, const QString& reason)
{
    return u"Kan %1 niet schrijven: %2"_s.arg(path, reason);
}

// One output and what stands in for it while the outputs are swapped.
struct Output
{
    QString target;
    QString fresh;  // the new picture, beside the target until it takes its place
    QString backup; // the file that was at the target, moved aside; empty: none
    bool placed = false;
};

// Leaves the outputs as they were before the run.
void rollBack(const QList<Output>& outputs, QTextStream& errors)
{
    for (const Output& output : outputs) {
        QFile::remove(output.placed ? output.target : output.fresh);
        if (!output.backup.isEmpty() && !QFile::rename(output.backup, output.target))
            errors << u"Het eerdere %1 staat nu in %2."_s.arg(output.target, output.backup)
                   << Qt::endl;
    }
}

// All pictures or none: each is written beside its output first; only when all
// were written do earlier outputs move aside for them, and any failure puts
// those back.
void writePngs(const QList<RenderedLabel>& labels, const QString& output, QTextStream& errors)
{
    QList<Output> outputs;
    try {
        for (qsizetype i = 0; i < labels.size(); ++i) {
            Output& each = outputs.emplaceBack(Output{outputName(output, i), {}, {}, false});
            QTemporaryFile fresh(each.target + u".XXXXXX"_s);
            fresh.setAutoRemove(false);
            if (fresh.open())
                each.fresh = fresh.fileName();
            const bool written =
                fresh.isOpen() && labels.at(i).image.save(&fresh, "PNG") && fresh.flush();
            fresh.close();
            if (!written || fresh.error() != QFileDevice::NoError)
                throw Failure{cannotWrite(each.target, fresh.errorString())};
        }
        for (Output& each : outputs) {
            if (!QFileInfo(each.target).isFile())
                continue;
            // QFile::rename never replaces a file, so the reserved name is freed first.
            QTemporaryFile aside(each.target + u".XXXXXX"_s);
            aside.setAutoRemove(false);
            if (!aside.open())
                throw Failure{cannotWrite(each.target, aside.errorString())};
            const QString backup = aside.fileName();
            aside.close();
            QFile::remove(backup);
            QFile earlier(each.target);
            if (!earlier.rename(backup))
                throw Failure{cannotWrite(each.target, earlier.errorString())};
            each.backup = backup;
        }
        for (Output& each : outputs) {
            QFile fresh(each.fresh);
            if (!fresh.rename(each.target))
                throw Failure{cannotWrite(each.target, fresh.errorString())};
            each.placed = true;
        }
    } catch (const Failure&) {
        rollBack(outputs, errors);
        throw;
    }
    for (const Output& each : std::as_const(outputs)) {
        if (!each.backup.isEmpty())
            QFile::remove(each.backup);
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

    const QString zplTemplate =
        QString::fromUtf8(readInput(parser.positionalArguments().first(), kMaxTemplateBytes));
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
    if (!preview.failure.isEmpty())
        throw Failure{preview.failure};
    if (preview.rendering.labels.isEmpty())
        throw Failure{u"Geen etiket gevonden (^XA...^XZ)."_s};

    for (const QString& warning : preview.warnings)
        errors << u"Waarschuwing: "_s << warning << Qt::endl;
    for (const QString& note : preview.rendering.notes)
        errors << u"Let op: "_s << note << Qt::endl;
    for (const QString& cut : preview.rendering.cuts)
        errors << u"Let op: "_s << cut << Qt::endl;
    writePngs(preview.rendering.labels, parser.value(u"o"_s), errors);
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
