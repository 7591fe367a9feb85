// Lists that stand open while their rows are changed: from another window of the program, and from another program.
#include "platform/dao/database.h"
#include "registers/registers.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/otherprogram.h"
#include "workorders/workorders.h"

using namespace Qt::StringLiterals;
using cadastro::clickHeader;
using cadastro::clickRow;
using cadastro::columnOf;
using support::click;
using support::text;
using support::type;

namespace
{

const QString query = u"frmOSConsulta"_s;
const QString vehicles = u"frmCadaVeiculos"_s;
const QString customers = u"frmCadaCliente"_s;
constexpr int plate = 3;

} // namespace

class TstListas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { program_.reset(); }

    void aRowChangedInAnotherWindowStays();
    void aRowDeletedInAnotherWindowStays();
    void aRowThatAnotherProgramDeletedIsTold();
    void aRowThatAnotherProgramDeletedLoadsNothing();
    void anotherProgramWritesWhileTheListStands();

private:
    static ui::Form *open(const QString &form)
    {
        auto *window = cadastro::open(form);
        click(window, u"btnTodos"_s);
        return window;
    }

    /// As another workstation does: through a connection of its own.
    void deleteElsewhere() const
    {
        const auto elsewhere = dao::DBEngine::OpenDatabase(program_->path(u"DADOS/DADOS.MDB"_s));
        elsewhere->Execute(u"DELETE * FROM Clientes WHERE Codigo = 1"_s);
    }

    std::unique_ptr<support::Program> program_;
};

void TstListas::initTestCase()
{
    registers::registerForms();
    workorders::registerForms();
}

void TstListas::init()
{
    program_ = std::make_unique<support::Program>();
    program_->config(u"PreencheCadastroAutomatico"_s, u"N"_s);
    const qint32 ana = program_->customer(u"ANA"_s);
    const qint32 bia = program_->customer(u"BIA"_s);
    for (const qint32 vehicle : {program_->vehicle(ana, u"AAA-1111"_s), program_->vehicle(bia, u"BBB-2222"_s)}) {
        program_->sql(u"INSERT INTO OrdemServico (CodCliente, CodVeiculo, DataIn, Valor, EmAberto, Pago) VALUES "
                      "(%1, %2, #05/15/2024#, 10, True, False)"_s.arg(vehicle == 1 ? ana : bia)
                          .arg(vehicle));
    }
}

void TstListas::aRowChangedInAnotherWindowStays()
{
    auto *orders = open(query);
    QCOMPARE(columnOf(orders, plate), (QStringList{u"AAA-1111"_s, u"BBB-2222"_s}));
    auto *register_ = cadastro::open(vehicles);
    click(register_, u"btnTodos"_s);
    clickRow(register_, 0);
    type(register_, u"txtPlaca"_s, u"ZZZ-9999"_s);
    support::Boxes boxes;
    boxes.question(u"Confirma a Alteração"_s, true);
    click(register_, u"btnAlterar"_s);
    boxes.finish();
    QCOMPARE(columnOf(register_, 5), (QStringList{u"ZZZ-9999"_s, u"BBB-2222"_s}));

    QCOMPARE(columnOf(orders, plate), (QStringList{u"AAA-1111"_s, u"BBB-2222"_s}));
    clickHeader(orders, plate);
    clickHeader(orders, plate);
    QCOMPARE(columnOf(orders, plate), (QStringList{u"BBB-2222"_s, u"AAA-1111"_s}));
    click(orders, u"btnTodos"_s);
    QCOMPARE(columnOf(orders, plate), (QStringList{u"ZZZ-9999"_s, u"BBB-2222"_s}));
}

void TstListas::aRowDeletedInAnotherWindowStays()
{
    auto *orders = open(query);
    auto *register_ = open(customers);
    clickRow(register_, 0);
    support::Boxes boxes;
    boxes.question(u"Deseja excluir o registro atual"_s, true);
    click(register_, u"btnExcluir"_s);
    boxes.finish();
    QCOMPARE(columnOf(register_, 1), QStringList{u"BIA"_s});
    QCOMPARE(columnOf(orders, plate), (QStringList{u"AAA-1111"_s, u"BBB-2222"_s}));
    click(orders, u"btnTodos"_s);
    QCOMPARE(columnOf(orders, plate), QStringList{u"BBB-2222"_s});
}

void TstListas::aRowThatAnotherProgramDeletedIsTold()
{
    auto *register_ = open(customers);
    deleteElsewhere();
    clickHeader(register_, 1);
    QCOMPARE(columnOf(register_, 1), (QStringList{u"#Excluído"_s, u"BIA"_s}));
    QCOMPARE(columnOf(register_), (QStringList{u"#Excluído"_s, u"0002"_s}));
}

/// Whichever way the row is asked for: the record that was shown stays.
void TstListas::aRowThatAnotherProgramDeletedLoadsNothing()
{
    auto *register_ = open(customers);
    deleteElsewhere();
    clickHeader(register_, 1);
    clickRow(register_, 1);
    QCOMPARE(text(register_, u"lblCodigo"_s), u"0002"_s);
    const QPoint gone = cadastro::placeOfRow(register_, 0);
    QTest::mouseClick(register_->windowHandle(), Qt::LeftButton, {}, gone);
    QTest::mouseDClick(register_->windowHandle(), Qt::LeftButton, {}, gone);
    type(register_, u"txtTexto"_s, u"ANA"_s);
    click(register_, u"btnLocalizar"_s);
    QCOMPARE(text(register_, u"lblCodigo"_s), u"0002"_s);
    QVERIFY(cadastro::isOpen(customers));
}

void TstListas::anotherProgramWritesWhileTheListStands()
{
    auto *register_ = open(customers);
    register_->grab();
    auto second = std::make_unique<support::OtherProgram>(program_->path(u"DADOS/DADOS.MDB"_s));
    QVERIFY(second->take());
    second->giveBack();
    cadastro::list(register_)->sortBy(1, Qt::DescendingOrder);
    QVERIFY(second->take());
    second->giveBack();
}

TARVELO_TEST_MAIN(TstListas)
#include "tst_listas.moc"
