#include "bench/oficina.h"
#include "bench/relator.h"

#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <QFile>
#include <QPixmap>

#include <cstdio>
#include <vector>

#ifdef Q_OS_LINUX
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr int columns = 10;

/// The texts of a row as a register makes them: a code and what its columns hold.
QStringList textsOf(int row)
{
    QStringList texts{runtime::Format(row, u"0000")};
    for (int column = 1; column < columns; ++column) {
        texts.append(u"TEXTO DA COLUNA %1 %2"_s.arg(column).arg(row));
    }
    return texts;
}

void addColumns(ui::ListView &list)
{
    for (int column = 0; column < columns; ++column) {
        list.addColumn(u"Coluna %1"_s.arg(column), 1500);
    }
}

void fill(ui::ListView &list)
{
    for (int row = 0; row < linhasGrandes; ++row) {
        auto texts = textsOf(row);
        const auto first = texts.takeFirst();
        list.addItem(first, texts);
    }
}

void fillAndPaint(benchmark::State &state)
{
    ui::ListView list;
    list.resize(1000, 600);
    addColumns(list);
    list.show();
    for (auto turn : state) {
        list.clear();
        fill(list);
        auto painted = list.grab();
        benchmark::DoNotOptimize(painted);
    }
}

void fillVector(benchmark::State &state)
{
    for (auto turn : state) {
        std::vector<QStringList> rows;
        for (int row = 0; row < linhasGrandes; ++row) {
            rows.push_back(textsOf(row));
        }
        benchmark::DoNotOptimize(rows.data());
    }
}

} // namespace

qint64 memoriaAssentada()
{
#ifdef Q_OS_LINUX
    malloc_trim(0);
#endif
    return memoriaResidente();
}

qint64 memoriaResidente()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const auto &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
        }
    }
    return 0;
}

int memoriaDeLista(const QString &kind)
{
    ui::ListView list;
    addColumns(list);
    list.show();
    list.grab();
    std::vector<QStringList> rows;

    const auto before = memoriaAssentada();
    if (kind == u"lista"_s) {
        fill(list);
        list.grab();
    } else if (kind == u"vetor"_s) {
        for (int row = 0; row < linhasGrandes; ++row) {
            rows.push_back(textsOf(row));
        }
    }
    const auto after = memoriaAssentada();
    std::printf("%lld %lld\n", after - before, after);
    return 0;
}

void medeLista()
{
    compara({"lista", 1.5, "a list filled with 200,000 rows by hand and painted, against a vector of the same texts"},
            fillAndPaint, fillVector);
}

} // namespace medidas
