#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "shell/lembretes.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

class Notices : public ui::Form
{
public:
    Notices() : Form(u"frmInfoAviso"_s) {}
};

bool noticesAreUp()
{
    return ui::Forms::instance().find(u"frmInfoAviso"_s) != nullptr;
}

} // namespace

/// The clock stands at 15/05/2024 10:30:00.
class TestLembretes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        ui::Forms::instance().add(u"frmInfoAviso"_s, [] { return new Notices; });
    }

    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void reminderComesWithTheLastOfItsDays_data()
    {
        QTest::addColumn<QString>("last");
        QTest::addColumn<int>("days");
        QTest::newRow("sixth day") << u"09/05/2024 00:00:00"_s << 0;
        QTest::newRow("seventh day, by midnights") << u"08/05/2024 23:59:59"_s << 7;
        QTest::newRow("a month") << u"15/04/2024 10:30:00"_s << 30;
    }
    void reminderComesWithTheLastOfItsDays()
    {
        QFETCH(const QString, last);
        QFETCH(const int, days);
        program_->config(u"LastBackup"_s, last);
        support::Boxes boxes;
        if (days > 0) {
            boxes.title(u"Tarvelo"_s)
                .information(
                    u"Por favor, realize um backup do sistema, última base de dados salva em\n%1 - %2 dias atrás."_s
                        .arg(last)
                        .arg(days));
        }
        shell::LembraBackup();
        boxes.finish();
    }

    void reminderCanBeSwitchedOff()
    {
        program_->config(u"LastBackup"_s, u"01/01/2020 08:00:00"_s);
        program_->config(u"AvisaBackup"_s, u"N"_s);
        support::Boxes boxes;
        shell::LembraBackup();
        boxes.finish();
    }

    void newInstallationIsRemindedAfterItsDays()
    {
        QCOMPARE(shell::UltimoBackup(), u"15/05/2024 10:30:00"_s);
        runtime::setClock(runtime::CDate(u"21/05/2024 23:00:00"_s));
        support::Boxes boxes;
        shell::LembraBackup();
        boxes.finish();

        runtime::setClock(runtime::CDate(u"22/05/2024 00:00:00"_s));
        boxes.information(
            u"Por favor, realize um backup do sistema, última base de dados salva em\n15/05/2024 10:30:00 - 7 dias atrás."_s);
        shell::LembraBackup();
        boxes.finish();
    }

    void whatFallsDueOpensTheNotices_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<bool>("opens");
        const auto payable = [](const QString &due, const QString &paid) {
            return u"INSERT INTO ContasPagar (Descricao, Valor, Vencimento, Pago) VALUES ('LUZ', 10, #%1#, %2)"_s.arg(
                due, paid);
        };
        QTest::newRow("nothing") << u"DELETE * FROM ContasPagar"_s << false;
        QTest::newRow("payable 15 days back") << payable(u"04/30/2024"_s, u"False"_s) << true;
        QTest::newRow("payable 16 days back") << payable(u"04/29/2024"_s, u"False"_s) << false;
        QTest::newRow("payable 15 days ahead") << payable(u"05/30/2024"_s, u"False"_s) << true;
        QTest::newRow("payable 16 days ahead") << payable(u"05/31/2024"_s, u"False"_s) << false;
        QTest::newRow("paid") << payable(u"05/15/2024"_s, u"True"_s) << false;
        QTest::newRow("receivable")
            << u"INSERT INTO ContasReceber (Descricao, Valor, Vencimento, Pago) VALUES ('X', 1, #05/15/2024#, False)"_s
            << true;
        QTest::newRow("cheque") << u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (1, #05/15/2024#, False)"_s
                                << true;
        QTest::newRow("pending order of nobody")
            << u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (99, 1, #05/15/2024#, False)"_s
            << false;
        QTest::newRow("pending order of a customer")
            << u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (1, 1, #05/15/2024#, False)"_s << true;
    }
    void whatFallsDueOpensTheNotices()
    {
        QFETCH(const QString, row);
        QCOMPARE(program_->customer(u"MARIA"_s), 1);
        program_->sql(row);
        shell::AvisaVencimentos();
        QTEST(noticesAreUp(), "opens");
    }

    void noticesCanBeSwitchedOff()
    {
        program_->sql(
            u"INSERT INTO ContasPagar (Descricao, Valor, Vencimento, Pago) VALUES ('LUZ', 10, #05/15/2024#, False)"_s);
        program_->config(u"ExibeAviso"_s, u"N"_s);
        shell::AvisaVencimentos();
        QVERIFY(!noticesAreUp());
    }

private:
    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestLembretes)
#include "tst_lembretes.moc"
