#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"

#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

class Cadastros : public QObject
{
    Q_OBJECT

private slots:
    void clientes();
    void veiculos();
    void pecas();
    void fornecedores();
};

/// Leaves a field with what its register warns about.
void warned(ui::Form *window, Boxes &boxes, const QString &field, const QString &text, const QString &message)
{
    boxes.exclamation(message);
    type(window, field, text);
    boxes.finish();
}

/// A postal code fills the address, and the number is all that is left to type.
void addressByPostalCode(ui::Form *window)
{
    type(window, u"txtCEP"_s, u"01310100"_s);
    QCOMPARE(support::text(window, u"txtEndereco"_s), u"AVENIDA PAULISTA"_s);
    QCOMPARE(support::text(window, u"txtBairro"_s), u"BELA VISTA"_s);
    QCOMPARE(support::text(window, u"txtCidade"_s), u"SÃO PAULO"_s);
    QCOMPARE(cadastro::focusOf(window), u"txtNumero"_s);
}

/// Changes a field of the record that is shown. The field is not left: the next one may warn about its own text.
void alter(ui::Form *window, Boxes &boxes, const QString &field, const QString &text)
{
    type(window, field, text, false);
    confirmed(window, boxes, u"btnAlterar"_s, u"Confirma a Alteração"_s);
}

// --- customers

void refusedCustomer(ui::Form *window, Boxes &boxes)
{
    refused(window, boxes, u"Nome Inválido"_s,
            {{u"txtNome"_s, u"joana prado"_s}, {u"txtDataNascimento"_s, u"31021980"_s}});
    refused(window, boxes, u"Data de Nascimento Inválida"_s, {{u"txtDataNascimento"_s, u"02011980"_s}});
    refused(window, boxes, u"Endereço Inválido"_s, {});
    addressByPostalCode(window);
    picture(u"frmCadaCliente_cep"_s);
    done(u"endereço preenchido pelo CEP"_s);
    refused(window, boxes, u"Número do Endereço Inválido"_s, {{u"txtNumero"_s, u"1578"_s}, {u"txtLimite"_s, u",,"_s}});
    refused(window, boxes, u"Limite de Crédito Inválido"_s, {{u"txtLimite"_s, u"1500"_s}});
    warned(window, boxes, u"txtCPF"_s, u"11144477730"_s, u"CPF Inválido"_s);
    cadastro::fill(window, {{u"txtCPF"_s, u"11144477735"_s},
                            {u"txtFone1"_s, u"1132841111"_s},
                            {u"txtEmail"_s, u"joana@oficina.example"_s}});
}

void Cadastros::clientes()
{
    Boxes boxes;
    auto *window = choose(u"itmCadaClie"_s, u"frmCadaCliente"_s);
    refusedCustomer(window, boxes);
    include(window, boxes);
    QCOMPARE(value(u"SELECT Endereco FROM Clientes WHERE Nome = 'JOANA PRADO'"_s), Value(u"AVENIDA PAULISTA"_s));
    QCOMPARE(value(u"SELECT Email FROM Clientes WHERE Nome = 'JOANA PRADO'"_s), Value(u"joana@oficina.example"_s));
    warned(window, boxes, u"txtNome"_s, u"joana prado"_s, u"Nome de Cliente Já Cadastrado"_s);
    done(u"cliente cadastrado, com todas as recusas e avisos"_s);

    findOne(window, u"ana pra"_s);
    QCOMPARE(support::text(window, u"txtCPF"_s), u"111.444.777-35"_s);
    picture(u"frmCadaCliente_novo"_s);
    alter(window, boxes, u"txtFone2"_s, u"1132842222"_s);
    QCOMPARE(value(u"SELECT Fone2 FROM Clientes WHERE Nome = 'JOANA PRADO'"_s), Value(u"(11) 3284-2222"_s));
    erase(window, boxes, u"Clientes"_s, u"prado"_s);
    close(window);
    done(u"cliente pesquisado, alterado e excluído"_s);
}

// --- vehicles

/// Somebody has to own the vehicle.
QString includeOwner(Boxes &boxes)
{
    auto *window = choose(u"itmCadaClie"_s, u"frmCadaCliente"_s);
    cadastro::fill(
        window,
        {{u"txtNome"_s, u"pedro antunes"_s}, {u"txtEndereco"_s, u"rua das acácias"_s}, {u"txtNumero"_s, u"77"_s}});
    include(window, boxes);
    close(window);
    return runtime::Format(value(u"SELECT Codigo FROM Clientes WHERE Nome = 'PEDRO ANTUNES'"_s), u"0000");
}

/// A code that is wrong has to go first, or leaving it for the register would warn once more.
void pickOwner(ui::Form *window, const QString &code)
{
    type(window, u"txtCodCliente"_s, QString(), false);
    support::key(window, u"txtCodCliente"_s, Qt::Key_F1);
    pick(u"frmCadaCliente"_s, u"antunes"_s, By::Enter);
    QTRY_COMPARE(support::text(window, u"txtCodCliente"_s), code);
    support::key(window, u"txtCodCliente"_s, Qt::Key_Tab);
    QCOMPARE(support::text(window, u"lblNomeCliente"_s), u"PEDRO ANTUNES"_s);
}

void refusedVehicle(ui::Form *window, Boxes &boxes, const QString &owner)
{
    refused(window, boxes, u"Código do Cliente Inválido"_s, {});
    warned(window, boxes, u"txtCodCliente"_s, u"999"_s, u"Código do Cliente não Localizado ou não Cadastrado"_s);
    refused(window, boxes, u"Código do Cliente Inválido"_s, {});
    pickOwner(window, owner);
    refused(window, boxes, u"Marca/Modelo Inválido"_s, {{u"cboMarca"_s, u"palio fire"_s}});
    click(window, u"btnMarcaAdd"_s);
    QCOMPARE(value(u"SELECT Texto FROM Combos WHERE Codigo = 1"_s), Value(u"PALIO FIRE"_s));
    cadastro::fill(window, {{u"txtAno"_s, u"20142015"_s}, {u"txtCor"_s, u"vermelho"_s}, {u"txtPlaca"_s, u"pal1234"_s}});
}

void Cadastros::veiculos()
{
    Boxes boxes;
    const QString owner = includeOwner(boxes);
    auto *window = choose(u"itmCadaVeiculos"_s, u"frmCadaVeiculos"_s);
    refusedVehicle(window, boxes, owner);
    include(window, boxes);
    QCOMPARE(value(u"SELECT Ano FROM Veiculos WHERE Placas = 'PAL1234'"_s), Value(u"2014/2015"_s));
    warned(window, boxes, u"txtPlaca"_s, u"pal1234"_s, u"Placa já cadastrada"_s);
    done(u"veículo cadastrado, o cliente escolhido por F1"_s);

    boxes.exclamation(u"Pesquisa sem Resultado!"_s);
    type(window, u"txtTexto"_s, u"ninguém"_s);
    click(window, u"btnPesquisar"_s);
    boxes.finish();
    cadastro::choose(window, u"cboPesquisa"_s, 2);
    findOne(window, u"al12"_s);
    alter(window, boxes, u"txtCor"_s, u"prata"_s);
    QCOMPARE(value(u"SELECT Cor FROM Veiculos WHERE Placas = 'PAL1234'"_s), Value(u"PRATA"_s));
    erase(window, boxes, u"Veiculos"_s, u"pal"_s);
    close(window);
    done(u"veículo pesquisado pela placa, alterado e excluído"_s);
}

// --- parts

void refusedPart(ui::Form *window, Boxes &boxes)
{
    refused(window, boxes, u"Nome Inválido"_s, {{u"txtNome"_s, u"correia dentada"_s}});
    refused(window, boxes, u"Marca Inválida"_s, {{u"cboMarca"_s, u"universal"_s}});
    refused(window, boxes, u"Valor de Custo Inválido"_s, {{u"txtCusto"_s, u"42"_s}});
    refused(window, boxes, u"Valor de Venda Inválido"_s, {{u"txtVenda"_s, u"79,9"_s}});
    refused(window, boxes, u"Estoque Mínimo Inválido"_s, {{u"txtEstoque"_s, u"2"_s}});
    refused(window, boxes, u"Estoque Atual Inválido"_s, {{u"txtEstoqueAtual"_s, u"6"_s}});
}

QString ledgerOf(const QString &part, const QString &column)
{
    return u"SELECT Estoque."_s + column + u" FROM Pecas, Estoque WHERE Pecas.Codigo = Estoque.CodPeca AND Nome = '"_s +
           part + u"'"_s;
}

void Cadastros::pecas()
{
    Boxes boxes;
    auto *window = choose(u"itmCadaPecas"_s, u"frmCadaPecas"_s);
    refusedPart(window, boxes);
    QCOMPARE(support::text(window, u"txtVenda"_s), u"79,90"_s);
    include(window, boxes);
    QCOMPARE(value(ledgerOf(u"CORREIA DENTADA"_s, u"Descricao"_s)), Value(u"ENTRADA INICIAL"_s));
    QCOMPARE(value(ledgerOf(u"CORREIA DENTADA"_s, u"Estoque"_s)), Value(6.0F));
    done(u"peça cadastrada, com a entrada inicial no estoque"_s);

    findOne(window, u"dentada"_s);
    QCOMPARE(support::text(window, u"txtEstoqueAtual"_s), u"06"_s);
    type(window, u"txtVenda"_s, u"84,5"_s);
    boxes.question(u"Confirma a Alteração"_s, true)
        .information(u"O Campo Estoque Atual Não Pode ser Alterado Pelo Cadastro de Peças/Serviços"_s);
    click(window, u"btnAlterar"_s);
    boxes.finish();
    QCOMPARE(value(u"SELECT ValorVenda FROM Pecas WHERE Nome = 'CORREIA DENTADA'"_s), Value(84.5F));
    confirmed(window, boxes, u"btnCancelar"_s, u"Limpar Campos"_s);
    erase(window, boxes, u"Pecas"_s, u"correia"_s);
    QCOMPARE(value(u"SELECT count(Codigo) FROM Estoque"_s), Value(0));
    close(window);
    done(u"peça pesquisada, alterada e excluída com seu estoque"_s);
}

// --- suppliers

void Cadastros::fornecedores()
{
    Boxes boxes;
    auto *window = choose(u"itmCadaFornecedores"_s, u"frmCadaFornecedor"_s);
    refused(window, boxes, u"Nome Inválido"_s, {{u"txtNome"_s, u"auto peças ipê"_s}, {u"txtContato"_s, u"lúcia"_s}});
    addressByPostalCode(window);
    cadastro::fill(window, {{u"txtNumero"_s, u"900"_s}, {u"txtFone1"_s, u"1132843333"_s}});
    warned(window, boxes, u"txtCPF"_s, u"11222333000180"_s, u"CNPJ inválido"_s);
    type(window, u"txtCPF"_s, u"11222333000181"_s);
    include(window, boxes);
    QCOMPARE(value(u"SELECT CNPJ FROM Fornecedores WHERE Nome = 'AUTO PEÇAS IPÊ'"_s), Value(u"11222333000181"_s));
    done(u"fornecedor cadastrado, com o aviso do CNPJ"_s);

    findOne(window, u"peças"_s);
    alter(window, boxes, u"txtContato"_s, u"rui"_s);
    QCOMPARE(value(u"SELECT Contato FROM Fornecedores WHERE Nome = 'AUTO PEÇAS IPÊ'"_s), Value(u"RUI"_s));
    erase(window, boxes, u"Fornecedores"_s, u"ipê"_s);
    close(window);
    done(u"fornecedor pesquisado, alterado e excluído"_s);
}

} // namespace

Assunto cadastros()
{
    return std::make_unique<Cadastros>();
}

} // namespace demonstracao

#include "cadastros.moc"
