#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/unit.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "reports/reports.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::rowsOf;
using papel::impresso;
using support::click;

namespace
{

/// The cash book as the preview sees it: whatever carries its mode is printed by it.
class Livro : public ui::Form
{
public:
    Livro() : ui::Form(u"frmMoviCaixa"_s)
    {
        auto *lblPrint = new ui::Label(this);
        lblPrint->setObjectName(u"lblPrint"_s);
    }
};

} // namespace

/// The visits of customers and those of vehicles, by their orders.
class TestRelaVisitas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { programa_.reset(); }

    void countsTheVisitsOfCustomers();
    void countsTheVisitsOfVehicles();
    void nobodyCame_data();
    void nobodyCame();
    void printsCustomersBelowTheTitlesOfVehicles();
    void printsVehicles();
    void sheetsAndPreview();
    void aHeaderClickSorts();
    void aRowOpensNothing();
    void thePreviewOfCustomersPrintsThroughTheCashBook();
    void thePreviewOfVehiclesPrintsThroughTheReport();

private:
    void ordem(qint32 cliente, qint32 veiculo, const QString &dia);
    void visitas();

    std::unique_ptr<support::Program> programa_;
    qint32 maria_ = 0;
    qint32 ana_ = 0;
    qint32 gol_ = 0;
    qint32 uno_ = 0;
};

void TestRelaVisitas::initTestCase()
{
    reports::registerForms();
    ui::Forms::instance().add(u"frmMoviCaixa"_s, [] { return new Livro; });
}

void TestRelaVisitas::init()
{
    programa_ = std::make_unique<support::Program>();
    maria_ = programa_->customer(u"MARIA"_s);
    ana_ = programa_->customer(u"ANA"_s);
    programa_->customer(u"NUNCA VEIO"_s);
    gol_ = programa_->vehicle(maria_, u"ABC1234"_s);
    uno_ = programa_->vehicle(ana_, u"DEF5678"_s, u"UNO MILLE"_s);
    programa_->vehicle(ana_, u"GHI9012"_s, u"NUNCA VEIO"_s);
}

void TestRelaVisitas::ordem(qint32 cliente, qint32 veiculo, const QString &dia)
{
    programa_->sql(u"INSERT INTO OrdemServico (CodCliente, CodVeiculo, DataIn) VALUES (%1, %2, #%3#)"_s.arg(cliente)
                       .arg(veiculo)
                       .arg(dia));
}

void TestRelaVisitas::visitas()
{
    ordem(maria_, gol_, u"5/10/2024 09:30:00"_s);
    ordem(ana_, uno_, u"12/31/2023"_s);
    ordem(maria_, gol_, u"2/1/2024"_s);
    ordem(ana_, gol_, u"1/1/2023"_s);
    ordem(ana_, 99, u"1/2/2023"_s);
}

void TestRelaVisitas::countsTheVisitsOfCustomers()
{
    visitas();
    ui::Form *form = papel::abre(core::modoRelaVisitas);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Visitas de Clientes]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Código Cliente"_s, u"Nome Cliente"_s, u"Visitas"_s, u"Data Últ. Visita"_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {u"0002"_s, u"ANA"_s, u"03"_s, u"31/12/2023"_s},
                               {u"0001"_s, u"MARIA"_s, u"02"_s, u"10/05/2024"_s},
                           }));
}

void TestRelaVisitas::countsTheVisitsOfVehicles()
{
    visitas();
    programa_->sql(u"DELETE * FROM Clientes WHERE Nome = 'ANA'"_s);
    ui::Form *form = papel::abre(core::modoRelaVisitasVeiculos);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Ralatório de Visitas de Veículos]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Código Veículo"_s, u"Marca/Modelo"_s, u"Nome Cliente"_s,
                                                    u"Visitas"_s, u"Data Últ. Visita"_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {u"0001"_s, u"GOL 1.0"_s, u"MARIA"_s, u"03"_s, u"10/05/2024"_s},
                               {u"0002"_s, u"UNO MILLE"_s, QString(), u"01"_s, u"31/12/2023"_s},
                           }));
}

void TestRelaVisitas::nobodyCame_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("customers") << int(core::modoRelaVisitas);
    QTest::newRow("vehicles") << int(core::modoRelaVisitasVeiculos);
}

void TestRelaVisitas::nobodyCame()
{
    QFETCH(int, modo);
    ui::Form *form = papel::abre(modo);
    QCOMPARE(cadastro::list(form)->count(), 1);
    QCOMPARE(rowsOf(form).front().mid(0, 2), (QStringList{QString(), u"Registro não Localizado"_s}));
}

void TestRelaVisitas::printsCustomersBelowTheTitlesOfVehicles()
{
    visitas();
    click(papel::abre(core::modoRelaVisitas), u"btnPrint"_s);
    QCOMPARE(impresso(),
             (std::vector<QStringList>{{
                 u"           VISITAS DE CLIENTES"_s,
                 u"                                             Tarvelo"_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 2"_s,
                 u"Exibindo.....: de: 1 à 2"_s,
                 u"COD.CLI - MARCA/VEÍCULO        - NOME CLIENTE                         - VISITAS    - DATA U.LAN."_s,
                 u"0002                             ANA                                    03           31/12/2023"_s,
                 u"0001                             MARIA                                  02           10/05/2024"_s,
             }}));
}

void TestRelaVisitas::printsVehicles()
{
    visitas();
    click(papel::abre(core::modoRelaVisitasVeiculos), u"btnPrint"_s);
    QCOMPARE(impresso().front().first(), u"           VISITAS DE VEÍCULOS"_s);
    QCOMPARE(impresso().front().mid(5),
             (QStringList{
                 u"COD.CLI - MARCA/VEÍCULO        - NOME CLIENTE                         - VISITAS    - DATA U.LAN."_s,
                 u"0001      GOL 1.0                MARIA                                  03           10/05/2024"_s,
                 u"0002      UNO MILLE              ANA                                    01           31/12/2023"_s,
             }));
}

void TestRelaVisitas::sheetsAndPreview()
{
    {
        const dao::Unit lote;
        for (int numero = 1; numero <= 110; ++numero) {
            const qint32 cliente = programa_->customer(u"CLIENTE %1"_s.arg(numero, 3, 10, QChar(u'0')));
            ordem(cliente, 1, u"5/2/2024"_s);
        }
    }
    ui::Form *form = papel::abre(core::modoRelaVisitas);
    click(form, u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    const QString linha =
        u"%1                             CLIENTE %2                            01           02/05/2024"_s;
    QCOMPARE(folhas[0].at(6), linha.arg(u"0004"_s, u"001"_s));
    QCOMPARE(folhas[1].at(6), linha.arg(u"0054"_s, u"051"_s));
    QCOMPARE(folhas[1].at(4), u"Exibindo.....: de: 51 à 100"_s);
    QCOMPARE(folhas[2].last(), linha.arg(u"0113"_s, u"110"_s));
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), folhas);
}

void TestRelaVisitas::aHeaderClickSorts()
{
    visitas();
    ui::Form *form = papel::abre(core::modoRelaVisitas);
    cadastro::clickHeader(form, 2);
    QCOMPARE(columnOf(form, 1), (QStringList{u"MARIA"_s, u"ANA"_s}));
}

void TestRelaVisitas::aRowOpensNothing()
{
    visitas();
    ui::Form *form = papel::abre(core::modoRelaVisitas);
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QCOMPARE(ui::Forms::instance().find(u"frmMoviCaixa"_s), nullptr);
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaVisitas});
}

/// The two reports have one mode: the preview knows no other owner for it.
void TestRelaVisitas::thePreviewOfCustomersPrintsThroughTheCashBook()
{
    visitas();
    ui::Form *form = papel::abre(core::modoRelaVisitas);
    click(form, u"btnPrevisualizar"_s);
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    ui::Form *livro = ui::Forms::instance().find(u"frmMoviCaixa"_s);
    QVERIFY(livro != nullptr);
    QCOMPARE(support::text(livro, u"lblPrint"_s), u"1"_s);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"0"_s);
    livro->Unload();
}

void TestRelaVisitas::thePreviewOfVehiclesPrintsThroughTheReport()
{
    visitas();
    ui::Form *form = papel::abre(core::modoRelaVisitasVeiculos);
    click(form, u"btnPrevisualizar"_s);
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"1"_s);
    QCOMPARE(impresso(), papel::previsto());
}

TARVELO_TEST_MAIN(TestRelaVisitas)
#include "tst_relavisitas.moc"
