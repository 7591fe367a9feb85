#include "core/esquema.h"

#include "core/caminhos.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace core
{

const QString camposSenha = u"Codigo.Integer,Nome.Text;50,Senha.Text;15,Admin.Boolean,Acessos.Text;255"_s;

namespace
{

constexpr QStringView nomeSenha = u"Senha";

struct Tabela {
    QStringView nome;
    QStringView campos;
};

constexpr QStringView camposLivroCaixa =
    u"Codigo.Counter,Data.Date,Descricao.Text;100,Entrada.Single,Saida.Single,Saldo.Single,CodOs.Long";
constexpr QStringView camposContas =
    u"Codigo.Counter,Data.date,Descricao.text;100,Valor.Single,Vencimento.Date,Pago.Boolean,DataPagto.Date,CodOs.Long";

constexpr std::array<Tabela, 20> tabelas{{
    {u"Combos", u"Codigo.integer,Texto.Text;250"},
    {u"Clientes",
     u"Codigo.Counter,DataCadastro.Date,Nome.Text;200,Endereco.Text;200,Numero.Integer,Complemento.Text;30,"
     u"Bairro.Text;50,Cidade.Text;80,Estado.Text;50,CEP.Text;10,PontoReferencia.Text;120,Fone1.Text;14,"
     u"Fone2.Text;14,Celular.Text;14,RG.Text;15,CPF.Text;20,DataNascimento.Date,Email.Text;100,"
     u"LimiteCredito.Single,Observacoes.Text;200"},
    {u"Veiculos", u"Codigo.Counter,CodCliente.Long,MarcaModelo.text;200,Ano.text;9,Cor.text;30,Placas.text;10,"
                  u"Combustivel.text;30,Observacoes.text;200,Chassi.text;50"},
    {u"Pecas", u"Codigo.Counter,Nome.Text;200,MarcaModelo.text;200,PS.text;1,UM.Integer,ValorCusto.Single,"
               u"ValorVenda.Single,EstoqueMinimo.Single,ControlaEstoque.Integer,CodExterno.text;20,ICMS.Integer,"
               u"ClassFiscal.text;20"},
    {u"Fornecedores", u"Codigo.Counter,DataCadastro.Date,Nome.Text;200,Contato.Text;200,Endereco.Text;200,"
                      u"Numero.Integer,Complemento.Text;30,Bairro.Text;50,Cidade.Text;80,Estado.Text;2,CEP.Text;10,"
                      u"PontoReferencia.Text;120,Fone1.Text;14,Fone2.Text;14,Celular.Text;14,CNPJ.Text;15,"
                      u"Email.Text;100,Observacoes.Text;200"},
    {u"Estoque", u"Codigo.Counter,CodPeca.Long,Data.date,Descricao.Text;50,Entrada.single,Saida.single,Estoque.single"},
    {u"OrdemServico", u"Codigo.Counter,CodCliente.Long,CodVeiculo.Long,DataIn.Date,DataOut.Date,KM.text;10,"
                      u"Observacao.text;250,Valor.Single,EmAberto.boolean,Pago.boolean,DataPagto.Date,"
                      u"FormaPagto.text;40,Descricao.text;255,Mecanico.Text;200"},
    {u"OSPecas", u"Codigo.Counter,CodOS.Long,CodPeca.Long,Quantidade.Single,Descricao.Text;255,ValorUnit.single,"
                 u"PSA.Text;1"},
    {u"Caixa", camposLivroCaixa},
    {u"Banco1", camposLivroCaixa},
    {u"Banco2", camposLivroCaixa},
    {u"ContasReceber", camposContas},
    {u"ContasPagar", camposContas},
    {u"Cheques", u"Codigo.Counter,CodOs.Long,Data.Date,Banco.text;50,Conta.text;50,Numero.text;50,Valor.single,"
                 u"Vencimento.Date,Pago.Integer,Observacoes.text;250"},
    {u"Fiados", u"Codigo.Counter,CodOs.Long,CodCliente.Long,Data.Date,Valor.Single,Vencimento.Date,Pago.boolean"},
    {u"ContaFiado", u"Codigo.Counter,CodCliente.Long,Data.Date,Descricao.Text;100,Entrada.single,Saida.Single,"
                    u"Saldo.Single"},
    {u"Orcamento", u"Codigo.Counter,Data.date,MarcaModelo.Text;200,Ano.text;9,CodCliente.Long,NomeCliente.text;250,"
                   u"Fone.text;25,Observacoes.text;250,Valor.Single"},
    {u"OrcaPecas", u"Codigo.Counter,CodOrca.Long,CodPeca.Long,Quantidade.Single,Descricao.Text;200,ValorUnit.single,"
                   u"PSA.Text;1"},
    {u"NotasEntradas", u"Codigo.Counter,CodForn.Long,Data.Date,Valor.Single,Observacoes.Text;200,Pago.Boolean,"
                       u"DataPagto.Date"},
    {u"NotasPecas", u"Codigo.Counter,CodNota.Long,CodPeca.Long,Quantidade.Single,Descricao.Text;200,ValorUnit.Single,"
                    u"PSA.Text;1"},
}};

// The stray bracket belongs to the list: the last field is a Single because the one before it is.
constexpr Tabela livroOrigem{
    u"LivroOrigem",
    u"Codigo.Counter,Data.Date,Origem.text;100,Dinheiro.Single,Avista.Single,Aprazo.single,Duplicata.Single)"};

/// A statement that brings an older file up to date, since a revision of the program.
struct Atualizacao {
    int revisao;
    QStringView comando;
};

constexpr std::array<Atualizacao, 8> atualizacoes{{
    {20, u"alter table pecas Add CodExterno varChar(20)"},
    {20, u"alter table ContasReceber Add CodOS long"},
    {20, u"alter table Caixa Add CodOs long"},
    {20, u"alter table OrdemServico Add Descricao varchar(255)"},
    {20, u"alter table pecas Add ICMS Integer"},
    {20, u"alter table pecas Add ClassFiscal varchar(20)"},
    {20, u"alter table OrdemServico Add Mecanico varchar(200)"},
    {20, u"alter table Veiculos Add Chassi varchar(50)"},
}};

/// The columns by which registers, queries and ledgers order a table. What is joined is sorted more quickly than its
/// rows are looked up in the order of one of its tables.
struct Ordem {
    QStringView tabela;
    QStringView colunas;
};

constexpr std::array<Ordem, 12> ordens{{
    {u"Clientes", u"Nome"},
    {u"Fornecedores", u"Nome"},
    {u"Pecas", u"Nome"},
    {u"Pecas", u"PS,Nome,MarcaModelo"},
    {u"Estoque", u"CodPeca,Data,Codigo"},
    {u"Estoque", u"CodPeca"}, // as its rows were stored: what the last one of each part shows
    {u"Caixa", u"Data,Codigo"},
    {u"Banco1", u"Data,Codigo"},
    {u"Banco2", u"Data,Codigo"},
    {u"ContasReceber", u"Vencimento,Codigo"},
    {u"ContasPagar", u"Vencimento,Codigo"},
    {u"Cheques", u"Data,Codigo"},
}};

struct Tipo {
    QStringView palavra;
    dao::FieldType tipo;
};

constexpr std::array<Tipo, 7> tipos{{
    {u"COUNTER", dao::FieldType::Long},
    {u"TEXT", dao::FieldType::Text},
    {u"BOOLEAN", dao::FieldType::Boolean},
    {u"INTEGER", dao::FieldType::Integer},
    {u"LONG", dao::FieldType::Long},
    {u"SINGLE", dao::FieldType::Single},
    {u"DATE", dao::FieldType::Date},
}};

constexpr int erroDeArgumento = 5;
constexpr int erroDeObjeto = 91;
constexpr int erroArquivoAusente = 3024;
constexpr int erroDeConversao = 3421;

QString cortaItem(QString &campos)
{
    const qsizetype virgula = campos.indexOf(u',');
    QString item = campos.left(virgula < 0 ? campos.size() : virgula);
    campos.remove(0, item.size() + 1);
    return item;
}

int tamanhoDe(const QString &texto)
{
    if (!runtime::IsNumeric(texto)) {
        runtime::raise(erroDeConversao);
    }
    return runtime::CInt(texto);
}

/// Reads the items of a field list. Type and size stay in force from item to item: a type word that is
/// unknown gives the field the type of the one before.
class LeitorDeCampos
{
public:
    dao::Field le(const QString &item)
    {
        const qsizetype ponto = item.indexOf(u'.');
        if (ponto < 0) {
            runtime::raise(erroDeArgumento);
        }
        palavra_ = runtime::UCase(item.mid(ponto + 1));
        escolheTipo();
        dao::Field campo{item.left(ponto), tipoEmVigor()};
        campo.size = campo.type == dao::FieldType::Text ? tamanho_ : 0;
        campo.attributes = palavra_ == u"COUNTER" ? dao::counterAttributes : 0;
        return campo;
    }

private:
    void escolheTipo()
    {
        const qsizetype pontoVirgula = palavra_.indexOf(u';');
        if (pontoVirgula >= 0) {
            tamanho_ = tamanhoDe(palavra_.mid(pontoVirgula + 1));
            palavra_ = u"TEXT"_s;
        } else if (palavra_ == u"TEXT") {
            runtime::raise(erroDeConversao); // its size is missing
        }
        for (const Tipo &conhecido : tipos) {
            if (conhecido.palavra == palavra_) {
                tipo_ = conhecido.tipo;
            }
        }
    }

    dao::FieldType tipoEmVigor() const
    {
        if (!tipo_) {
            runtime::raise(erroDeConversao);
        }
        return *tipo_;
    }

    QString palavra_;
    std::optional<dao::FieldType> tipo_;
    int tamanho_ = 0;
};

dao::TableDef leTabela(const QString &nome, QString &campos)
{
    dao::TableDef tabela(nome);
    LeitorDeCampos leitor;
    while (!campos.isEmpty()) {
        tabela.append(leitor.le(cortaItem(campos)));
    }
    return tabela;
}

dao::Database &banco()
{
    if (!DBDados) {
        runtime::raise(erroDeObjeto);
    }
    return *DBDados;
}

/// Runs one step and goes on behind it, whatever becomes of it.
template<class Passo>
void ignoraErros(Passo passo)
{
    try {
        passo();
    } catch (const runtime::RuntimeError &) { // NOLINT(bugprone-empty-catch): a step that fails is skipped
    }
}

/// All names in one text, each behind a blank: a name that only begins with the wanted one counts as well.
QString nomesDasTabelas()
{
    QString nomes = u" "_s;
    ignoraErros([&] {
        for (const dao::TableDef &tabela : banco().TableDefs()) {
            nomes += runtime::UCase(tabela.name()) + u' ';
        }
    });
    return nomes;
}

void criaSeFalta(const QString &nomes, const Tabela &tabela, const AvisoCritico &aviso)
{
    const QString nome = tabela.nome.toString();
    if (!nomes.contains(QString(u' ' + runtime::UCase(nome)))) {
        QString campos = tabela.campos.toString();
        CriaTabela(nome, campos, aviso);
    }
}

void atualiza()
{
    const QString versao = QString::number(App::Major) + QString::number(App::Minor);
    if (runtime::Val(u"21") != runtime::Val(versao)) {
        return;
    }
    for (const Atualizacao &passo : atualizacoes) {
        if (App::Revision >= passo.revisao) {
            // A field that is there already makes the statement fail: that is how its presence is found out.
            ignoraErros([&] { banco().Execute(passo.comando.toString()); });
        }
    }
}

/// A file that can't be written at present is read as it is, only slower. One try is enough: each waits for the lock.
void mantemOrdens()
{
    ignoraErros([] {
        for (const Ordem &ordem : ordens) {
            banco().KeepInOrder(ordem.tabela.toString(), ordem.colunas.toString().split(u','));
        }
    });
}

void criaBanco(const QString &arquivo, const AvisoCritico &aviso)
{
    // A file that can't be created shows in the failure of its first table.
    ignoraErros([&] { DBDados = dao::DBEngine::CreateDatabase(arquivo, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s); });
    QString campos = camposSenha;
    CriaTabela(nomeSenha.toString(), campos, aviso);
}

} // namespace

QStringList TabelasDoPrograma()
{
    QStringList nomes{nomeSenha.toString()};
    for (const Tabela &tabela : tabelas) {
        nomes.append(tabela.nome.toString());
    }
    nomes.append(livroOrigem.nome.toString());
    return nomes;
}

bool CriaTabela(const QString &nome, QString &campos, const AvisoCritico &aviso)
{
    bool criada = true;
    try {
        const dao::TableDef tabela = leTabela(nome, campos);
        banco().AppendTableDef(tabela);
    } catch (const runtime::RuntimeError &erro) {
        criada = false;
        aviso(u"Erro na Criação da Tabela "_s + nome + u"\r\n"_s + erro.description());
    }
    campos.clear();
    return criada;
}

void CriaLivroOrigem(const AvisoCritico &aviso)
{
    criaSeFalta(nomesDasTabelas(), livroOrigem, aviso);
}

void CriarDB(const AvisoCritico &aviso)
{
    const QString nomes = nomesDasTabelas();
    for (const Tabela &tabela : tabelas) {
        criaSeFalta(nomes, tabela, aviso);
    }
    if (Config(u"Personalizacao"_s) == u"1-1") {
        CriaLivroOrigem(aviso);
    }
    atualiza();
    mantemOrdens();
}

void AbreOuCriaBanco(const AvisoCritico &aviso)
{
    const QString arquivo = caminho(ArquivoDB);
    DBDados.reset();
    try {
        DBDados = dao::DBEngine::OpenDatabase(arquivo);
    } catch (const runtime::RuntimeError &erro) {
        if (erro.number() != erroArquivoAusente) {
            throw;
        }
        criaBanco(arquivo, aviso);
    }
}

} // namespace core
