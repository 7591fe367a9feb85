#include "core/informacoes.h"

#include "core/modulo.h"
#include "support/boxes.h"
#include "support/errors.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;
using core::MostraInformacoes;
using core::TipoInformacao;

class TestInformacoes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tellsACustomerLineByLine();
    void tellsNullFieldsAsEmpty();
    void tellsAVehicleByItsCode();
    void tellsAVehicleByItsPlate();
    void tellsAPartWithoutStockControl();
    void tellsAPartWithItsNewestBalance();
    void showsNothingWithoutARecord_data();
    void showsNothingWithoutARecord();
    void tellsWhatCanBeACode_data();
    void tellsWhatCanBeACode();
    void readsTheCodeOfATypedText_data();
    void readsTheCodeOfATypedText();

private:
    void cliente();
    void veiculo();

    std::unique_ptr<support::Program> programa_;
};

void TestInformacoes::init()
{
    programa_ = std::make_unique<support::Program>();
}

void TestInformacoes::cleanup()
{
    programa_.reset();
}

void TestInformacoes::cliente()
{
    programa_->customer(u"ANA SOUZA"_s);
    programa_->sql(u"UPDATE Clientes SET Endereco = 'RUA A', Numero = 12, Complemento = 'CASA 2', Bairro = 'CENTRO', "
                   u"Cidade = 'BAURU', Fone1 = '(14) 3222-1111', Fone2 = '(14) 3222-2222', Celular = '(14) 9999-0000', "
                   u"Observacoes = 'PAGA BEM' WHERE Codigo = 1"_s);
}

void TestInformacoes::tellsACustomerLineByLine()
{
    cliente();
    support::Boxes caixas;
    caixas.title(u"Tarvelo"_s)
        .information(u"Código Cliente:\t0001\n"
                     u"Nome Cliente:\tANA SOUZA\n"
                     u"Endereço:\tRUA A, 12\n"
                     u"Complemento:\tCASA 2\n"
                     u"Bairro:\tCENTRO\n"
                     u"Cidade:\tBAURU\n"
                     u"Fone1:\t(14) 3222-1111\n"
                     u"Fone2:\t(14) 3222-2222\n"
                     u"Celular:\t(14) 9999-0000\n"
                     u"Observações:\tPAGA BEM\n"_s);
    MostraInformacoes(TipoInformacao::Cliente, u"0001"_s);
    caixas.finish();
}

void TestInformacoes::tellsNullFieldsAsEmpty()
{
    programa_->customer(u"BIA"_s);
    support::Boxes caixas;
    caixas.information(u"Código Cliente:\t0001\nNome Cliente:\tBIA\nEndereço:\t, \nComplemento:\t\nBairro:\t\n"
                       u"Cidade:\t\nFone1:\t\nFone2:\t\nCelular:\t\nObservações:\t\n"_s);
    MostraInformacoes(TipoInformacao::Cliente, u"1"_s);
    caixas.finish();
}

void TestInformacoes::veiculo()
{
    const qint32 dono = programa_->customer(u"ANA SOUZA"_s);
    programa_->vehicle(dono, u"ABC-1234"_s, u"GOL 1.0"_s);
    programa_->sql(
        u"UPDATE Veiculos SET Ano = '2010/2011', Cor = 'PRATA', Combustivel = 'FLEX', Observacoes = 'RISCADO' "
        u"WHERE Codigo = 1"_s);
}

namespace
{

const QString textoDoVeiculo = u"Código:\t0001\n"
                               u"Nome Cliente:\tANA SOUZA\n"
                               u"Marca/Modelo:\tGOL 1.0\n"
                               u"Ano:\t2010/2011\n"
                               u"Cor:\tPRATA\n"
                               u"Placas:\tABC-1234\n"
                               u"Combustível:\tFLEX\n"
                               u"Observações:\tRISCADO\n"_s;

} // namespace

void TestInformacoes::tellsAVehicleByItsCode()
{
    veiculo();
    support::Boxes caixas;
    caixas.information(textoDoVeiculo);
    MostraInformacoes(TipoInformacao::Veiculo, u"0001"_s);
    caixas.finish();
}

void TestInformacoes::tellsAVehicleByItsPlate()
{
    veiculo();
    support::Boxes caixas;
    caixas.information(textoDoVeiculo);
    MostraInformacoes(TipoInformacao::Veiculo, u"abc-1234"_s);
    caixas.finish();
}

void TestInformacoes::tellsAPartWithoutStockControl()
{
    programa_->part(u"VELA"_s, u"P"_s, u"1234,5"_s, true, 3);
    programa_->sql(u"UPDATE Pecas SET MarcaModelo = 'GOL', ValorCusto = 10, ControlaEstoque = 0 WHERE Codigo = 1"_s);
    support::Boxes caixas;
    caixas.information(u"Cód. Peça:\t0001\n"
                       u"Nome Peça:\tVELA\n"
                       u"Aplicação:\tGOL\n"
                       u"Unidade Med.:\tGALÃO\n"
                       u"Valor Custo:\t10,00\n"
                       u"Valor Venda:\t1.234,50\n"_s);
    MostraInformacoes(TipoInformacao::Peca, u"1"_s);
    caixas.finish();
}

void TestInformacoes::tellsAPartWithItsNewestBalance()
{
    programa_->part(u"ÓLEO"_s, u"P"_s, u"20"_s, true, 2);
    programa_->sql(u"UPDATE Pecas SET EstoqueMinimo = 5 WHERE Codigo = 1"_s);
    programa_->sql(u"INSERT INTO Estoque (CodPeca, Entrada, Estoque) VALUES (1, 12.5, 12.5)"_s);
    support::Boxes caixas;
    caixas.information(u"Cód. Peça:\t0001\n"
                       u"Nome Peça:\tÓLEO\n"
                       u"Aplicação:\t\n"
                       u"Unidade Med.:\tLITROS\n"
                       u"Valor Custo:\t\n"
                       u"Valor Venda:\t20,00\n"
                       u"Estoque Mín.:\t5,000\n"
                       u"Estoque Atual:\t12,500\n"_s);
    MostraInformacoes(TipoInformacao::Peca, u"0001"_s);
    caixas.finish();
}

void TestInformacoes::showsNothingWithoutARecord_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("codigo");
    QTest::newRow("an unknown customer") << 0 << u"99"_s;
    QTest::newRow("a customer's name") << 0 << u"ANA"_s;
    QTest::newRow("an empty customer") << 0 << QString();
    QTest::newRow("an unknown vehicle") << 1 << u"99"_s;
    QTest::newRow("an unknown plate") << 1 << u"ZZZ-9999"_s;
    QTest::newRow("an empty plate") << 1 << QString();
    QTest::newRow("an unknown part") << 2 << u"99"_s;
    QTest::newRow("a part without a ledger row") << 2 << u"1"_s;
}

void TestInformacoes::showsNothingWithoutARecord()
{
    programa_->part(u"VELA"_s, u"P"_s, u"10"_s);
    QFETCH(const int, tipo);
    QFETCH(const QString, codigo);
    support::Boxes caixas; // any box would fail the test
    MostraInformacoes(static_cast<TipoInformacao>(tipo), codigo);
    caixas.finish();
}

void TestInformacoes::tellsWhatCanBeACode_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("pode");
    QTest::newRow("code") << u"0012"_s << true;
    QTest::newRow("blank in front") << u" 123"_s << true;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("letters") << u"GOL "_s << false;
    QTest::newRow("more than a code holds") << u"9E99"_s << false;
}

void TestInformacoes::tellsWhatCanBeACode()
{
    QFETCH(QString, texto);
    QTEST(core::PodeSerCodigo(texto), "pode");
}

void TestInformacoes::readsTheCodeOfATypedText_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("codigo");
    QTest::newRow("code") << u"0012"_s << u"12"_s;
    QTest::newRow("power") << u"1e3"_s << u"1000"_s;
    QTest::newRow("thousands") << u"1.000"_s << u"1000"_s;
    QTest::newRow("the greatest") << u"2147483647"_s << u"2147483647"_s;
    QTest::newRow("fraction") << u"1,5"_s << QString();
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("letters") << u"GOL"_s << QString();
    QTest::newRow("more than a code holds") << u"9999999999"_s << QString();
    QTest::newRow("more than any number") << u"1E999"_s << QString();
}

void TestInformacoes::readsTheCodeOfATypedText()
{
    QFETCH(QString, texto);
    const auto codigo = core::CodigoDoTexto(texto);
    QTEST(codigo ? QString::number(*codigo) : QString(), "codigo");
}

TARVELO_TEST_MAIN(TestInformacoes)
#include "tst_informacoes.moc"
