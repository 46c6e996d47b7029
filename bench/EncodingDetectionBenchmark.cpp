// Throughput of the encoding detector with every shipped rules file loaded, on 1 MB subtitle
// files in legacy code pages.

#include "Resources.h"
#include "TextCodec.h"
#include "VHEncodingChooser.h"

#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
// About `size` bytes of SubRip text made of the language's evaluation dialogue.
QString subRip(const QString &language, qsizetype size)
{
    QFile file(QStringLiteral(CAPTORA_ENCODING_TEST_DATA "/texts/") + language + u".txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QString text;
    for (int i = 0; text.size() < size; ++i) {
        const int start = 1000 + i * 2500;
        text += u"%1\n00:%2:%3,000 --> 00:%2:%4,500\n%5\n\n"_s.arg(i + 1)
                    .arg(start / 60000 % 60, 2, 10, QChar(u'0'))
                    .arg(start / 1000 % 60, 2, 10, QChar(u'0'))
                    .arg((start + 2000) / 1000 % 60, 2, 10, QChar(u'0'))
                    .arg(lines.at(i % lines.size()));
    }
    return text;
}

struct Sample
{
    const char *language;
    EncodingId encoding;
};
const Sample kSamples[] = {
    {"Russian", Encodings::WindowsCP1251},
    {"French", Encodings::WindowsCP1252},
    {"Japanese", Encodings::ShiftJIS},
    {"ChineseSimplified", Encodings::GB18030},
};

void detect(benchmark::State &state)
{
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    const Sample &sample = kSamples[state.range(0)];
    QByteArray bytes;
    // Characters, not bytes: double-byte text needs fewer for a megabyte.
    const qsizetype characters =
        sample.encoding == Encodings::ShiftJIS || sample.encoding == Encodings::GB18030 ? 650000 : 1000000;
    if (!TextCodec::encode(subRip(QString::fromLatin1(sample.language), characters), sample.encoding,
                           &bytes)) {
        state.SkipWithError("could not make the sample file");
        return;
    }
    QTemporaryDir folder;
    const QString path = folder.filePath(u"sample.srt"_s);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    file.close();

    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    for (auto _ : state) {
        const VHEncodingChooser::Choice choice = chooser.choose(path, 0.6);
        if (!choice.accepted || choice.best->stringEncoding() != sample.encoding) {
            state.SkipWithError("wrong encoding detected");
            return;
        }
        benchmark::DoNotOptimize(choice.text);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
    state.SetLabel(std::string(sample.language) + ", " + std::to_string(bytes.size()) + " bytes");
}
BENCHMARK(detect)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

void loadRules(benchmark::State &state)
{
    for (auto _ : state) {
        const VHEncodingChooser chooser = VHEncodingChooser::fromFolder(resourcePath(u"encodings"_s));
        benchmark::DoNotOptimize(chooser.testers().size());
    }
}
BENCHMARK(loadRules)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
