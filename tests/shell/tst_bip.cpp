#include "shell/lembretes.h"
#include "shell/shell.h"
#include "support/program.h"

#include <QApplication>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

int beeps = 0;

} // namespace

/// In the place of the library's, which off screen nobody hears.
void QApplication::beep()
{
    ++beeps;
}

/// The beep that goes with the notices.
class TstBip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init()
    {
        program_ = std::make_unique<support::Program>();
        beeps = 0;
    }
    void cleanup() { program_.reset(); }

    void whatFallsDueBeepsOnce_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("notices");
        QTest::addColumn<int>("expected");
        const QString due =
            u"INSERT INTO ContasPagar (Descricao, Valor, Vencimento, Pago) VALUES ('LUZ', 10, #05/15/2024#, False)"_s;
        QTest::newRow("due") << due << u"S"_s << 1;
        QTest::newRow("switched off") << due << u"N"_s << 0;
        QTest::newRow("nothing due") << u"DELETE * FROM ContasPagar"_s << u"S"_s << 0;
    }
    void whatFallsDueBeepsOnce()
    {
        QFETCH(const QString, row);
        QFETCH(const QString, notices);
        program_->sql(row);
        program_->config(u"ExibeAviso"_s, notices);
        shell::AvisaVencimentos();
        QTEST(beeps, "expected");
    }

    void openingByTheMenuIsSilent()
    {
        program_->sql(
            u"INSERT INTO ContasPagar (Descricao, Valor, Vencimento, Pago) VALUES ('LUZ', 10, #05/15/2024#, False)"_s);
        support::show(u"frmInfoAviso"_s);
        QCOMPARE(beeps, 0);
    }

private:
    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TstBip)
#include "tst_bip.moc"
