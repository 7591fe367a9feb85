// Stands where the process that reads a Jet file should, and does what a damaged file makes of one: its first argument
// says what.
#include "platform/jet/frames.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>
#include <cstdlib>

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{

void write(jet::Frame frame, const QByteArray &bytes, qint64 told = -1)
{
    const jet::FrameHead head{frame, static_cast<quint32>(told < 0 ? bytes.size() : told)};
    std::fwrite(&head, sizeof head, 1, stdout);
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void writeTables()
{
    write(jet::Frame::Tables,
          jet::packTables(
              {{u"CLIENTES"_s, {{u"Codigo"_s, jet::Long, 4, true}, {u"Nome"_s, jet::Text, 50, false}}, 3, true}}));
}

void writeRows(int count)
{
    QByteArray rows;
    for (qint32 i = 1; i <= count; ++i) {
        jet::packRow({{i, u"JOÃO"_s}, {}}, rows);
    }
    write(jet::Frame::Rows, rows);
}

void awaitRequest()
{
    quint32 table = 0;
    if (std::fread(&table, sizeof table, 1, stdin) != 1) {
        std::exit(0);
    }
}

void keepSilent()
{
    for (;;) {
        QThread::sleep(1);
    }
}

void crash()
{
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

/// What it does at the start; true where it goes on to answer.
bool start(const QString &what)
{
    if (what == u"crashes at the start") {
        crash();
    } else if (what == u"is silent at the start") {
        keepSilent();
    } else if (what == u"ends at the start") {
        return false;
    } else if (what == u"writes no frames") {
        std::fputs("mdb_open: this is no frame but words\n", stdout);
        return false;
    } else if (what == u"begins with rows") {
        writeRows(3);
        return false;
    } else if (what == u"tells of a frame without end") {
        write(jet::Frame::Tables, {}, 0xFFFF'FFFF);
        keepSilent();
    } else if (what == u"tells of half a table") {
        write(jet::Frame::Tables, QByteArray("\4\0\0\0A\0", 6));
        return false;
    } else if (what == u"finds no catalogue") {
        write(jet::Frame::Damaged, jet::packDamage(jet::Damage::Catalogue));
        return false;
    }
    writeTables();
    return true;
}

void answer(const QString &what)
{
    if (what == u"crashes among the rows") {
        writeRows(2);
        crash();
    } else if (what == u"is silent among the rows") {
        writeRows(2);
        keepSilent();
    } else if (what == u"ends among the rows") {
        writeRows(2);
        std::exit(0);
    } else if (what == u"breaks off in a frame") {
        write(jet::Frame::Rows, QByteArray(10, '\0'), 1000);
        std::exit(0);
    } else if (what == u"writes rows without end") {
        for (;;) {
            writeRows(100);
        }
    } else if (what == u"writes empty frames") {
        write(jet::Frame::Rows, {});
        keepSilent();
    } else if (what == u"writes unknown values") {
        write(jet::Frame::Rows, QByteArray(10, '\x7F'));
    } else if (what == u"breaks off in a row") {
        QByteArray row;
        jet::packRow({{qint32{1}, u"JOÃO"_s}, {}}, row);
        row.chop(3);
        write(jet::Frame::Rows, row);
    } else if (what == u"miscounts its rows") {
        writeRows(3);
        write(jet::Frame::End, jet::packReading({4, 0, false}));
    } else if (what == u"tells of the tables again") {
        writeTables();
    } else {
        writeRows(3);
        write(jet::Frame::End, jet::packReading({3, 0, false}));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    const QString what = QCoreApplication::arguments().at(1);
    if (!start(what)) {
        return 0;
    }
    for (;;) {
        awaitRequest();
        answer(what);
    }
}
