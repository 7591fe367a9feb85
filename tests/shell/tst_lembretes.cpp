#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "shell/frmMDI.h"
#include "shell/lembretes.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QAction>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

const QString dueToday =
    u"INSERT INTO ContasPagar (Descricao, Valor, Vencimento, Pago) VALUES ('LUZ', 10, #05/15/2024#, False)"_s;

QString lastBackupItem()
{
    return shell::principal().findChild<QAction *>(u"itmBackData"_s)->text();
}

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
    void initTestCase() { shell::registerForms(); }

    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup()
    {
        ui::Forms::instance().unloadAll();
        shell::fechaPrincipal();
        program_.reset();
    }

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
        QTest::newRow("payable 15 days ahead with a time of day")
            << payable(u"05/30/2024 08:00:00"_s, u"False"_s) << false;
        QTest::newRow("payable 15 days back with a time of day")
            << payable(u"04/30/2024 08:00:00"_s, u"False"_s) << true;
        QTest::newRow("payable in the last second 16 days back")
            << payable(u"04/29/2024 23:59:59"_s, u"False"_s) << false;
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
        QTest::newRow("settled pending order")
            << u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (1, 1, #05/15/2024#, True)"_s << false;
        QTest::newRow("pending order 16 days ahead")
            << u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (1, 1, #05/31/2024#, False)"_s
            << false;
        QTest::newRow("a customer's debt, which no question asks for")
            << u"INSERT INTO ContaFiado (CodCliente, Data, Entrada, Saldo) VALUES (1, #05/15/2024#, 50, 50)"_s << false;
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

    /// The pending order decides, the account is shown.
    void pendingOrdersOpenWhatListsTheAccounts()
    {
        QCOMPARE(program_->customer(u"MARIA"_s), 1);
        program_->sql(
            u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (1, 50, #05/15/2024#, False)"_s);
        shell::AvisaVencimentos();
        QVERIFY(noticesAreUp());
        auto *list = support::control<ui::ListView>(ui::Forms::instance().find(u"frmInfoAviso"_s), u"Lista_3"_s);
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->item(0).text(), u"Registro não Localizado"_s);
    }

    void theFirstFindEndsTheQuestions()
    {
        program_->sql(dueToday);
        program_->sql(u"DROP TABLE Fiados"_s); // asked, it would fail
        shell::AvisaVencimentos();
        QVERIFY(noticesAreUp());
    }

    void aQuestionThatFailsIsPassedOver()
    {
        program_->sql(u"DROP TABLE Fiados"_s);
        shell::AvisaVencimentos();
        QVERIFY(!noticesAreUp());
    }

    void startTellsReminderThenDateThenNotices()
    {
        program_->config(u"LastBackup"_s, u"08/05/2024 09:00:00"_s);
        program_->sql(dueToday);
        QStringList whileReminding;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            if (whileReminding.isEmpty() && qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                whileReminding = {shell::principal().isVisible() ? u"main window"_s : QString(), lastBackupItem(),
                                  noticesAreUp() ? u"notices"_s : QString()};
            }
        });
        look.start(0);
        support::Boxes boxes;
        boxes.information(
            u"Por favor, realize um backup do sistema, última base de dados salva em\n08/05/2024 09:00:00 - 7 dias atrás."_s);

        shell::principal().MDIForm_Load();

        boxes.finish();
        QCOMPARE(whileReminding.size(), 3);
        QCOMPARE(whileReminding.first(), u"main window"_s);
        QCOMPARE_NE(whileReminding.at(1), u"08/05/2024 09:00:00"_s);
        QCOMPARE(whileReminding.last(), QString());
        QCOMPARE(lastBackupItem(), u"08/05/2024 09:00:00"_s);
        QVERIFY(noticesAreUp());
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(ui::Forms::instance().area()->isAncestorOf(ui::Forms::instance().find(u"frmInfoAviso"_s)));
    }

    void startTellsTheDateWhereNobodyIsReminded_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("reminder off") << u"AvisaBackup"_s;
        QTest::newRow("notices off") << u"ExibeAviso"_s;
    }
    void startTellsTheDateWhereNobodyIsReminded()
    {
        QFETCH(const QString, key);
        program_->config(key, u"N"_s);
        program_->config(u"LastBackup"_s, u"09/05/2024 09:00:00"_s);
        program_->sql(dueToday);
        support::Boxes boxes;
        shell::principal().MDIForm_Load();
        boxes.finish();
        QCOMPARE(lastBackupItem(), u"09/05/2024 09:00:00"_s);
        QCOMPARE(noticesAreUp(), key == u"AvisaBackup"_s);
    }

    void startGoesOnWhereTheNoticesFail()
    {
        program_->sql(u"DROP TABLE ContasPagar"_s);
        program_->sql(u"CREATE TABLE ContasPagar (Codigo COUNTER, Valor SINGLE)"_s);
        program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (1, #05/15/2024#, False)"_s);
        support::Boxes boxes;
        shell::principal().MDIForm_Load();
        boxes.finish();
        QVERIFY(shell::principal().isVisible());
        QVERIFY(!noticesAreUp());
        QVERIFY(!ui::Application::ended());
    }

    /// Every operator is told, as the menu that leads there is not every operator's.
    void startTellsEveryOperator()
    {
        program_->sql(u"UPDATE Senha SET Admin = False WHERE Codigo = 1"_s);
        program_->sql(dueToday);
        shell::principal().MDIForm_Load();
        QVERIFY(noticesAreUp());
    }

private:
    std::unique_ptr<support::Program> program_;
};

TARVELO_TEST_MAIN(TestLembretes)
#include "tst_lembretes.moc"
