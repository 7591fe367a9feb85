#include "tools/importa/esquema.h"

#include "core/config.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/types.h"
#include "platform/dao/unit.h"
#include "platform/runtime/error.h"
#include "tools/cep/postais.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

constexpr auto tabelaDeTrabalho = u"RelaPecas";
constexpr auto tabelaLivroOrigem = u"LivroOrigem";
constexpr auto colunaCEP = u"CEP";
constexpr int algarismosDoCEP = 8;

bool mesmoNome(QStringView um, QStringView outro)
{
    return um.compare(outro, Qt::CaseInsensitive) == 0;
}

template<class Lista>
int lugarDe(const Lista &lista, QStringView nome)
{
    const auto achado =
        std::find_if(lista.begin(), lista.end(), [nome](const auto &um) { return mesmoNome(um.name, nome); });
    return achado != lista.end() ? static_cast<int>(achado - lista.begin()) : -1;
}

bool tem(const std::vector<jet::Table> &origem, QStringView nome)
{
    return lugarDe(origem, nome) >= 0;
}

/// The program's own code works on its own database and by its own settings: for the time of it these are the target
/// and none, as what belongs into a file depends on the source alone.
class ComoOPrograma
{
public:
    explicit ComoOPrograma(std::shared_ptr<dao::Database> banco)
        : banco_(std::exchange(core::DBDados, std::move(banco))), ajustes_(std::exchange(core::ArquivoINI, QString()))
    {
    }
    ~ComoOPrograma()
    {
        core::DBDados = std::move(banco_);
        core::ArquivoINI = std::move(ajustes_);
    }
    Q_DISABLE_COPY_MOVE(ComoOPrograma)

private:
    std::shared_ptr<dao::Database> banco_;
    QString ajustes_;
};

void criaTabelasDaOficina(const std::shared_ptr<dao::Database> &banco, bool comLivroOrigem)
{
    const ComoOPrograma programa(banco);
    const auto aviso = [](const QString &texto) { throw Erro(Falha::Outra, {.detalhe = texto}); };
    QString campos = core::camposSenha;
    core::CriaTabela(u"Senha"_s, campos, aviso);
    core::CriarDB(aviso);
    if (comLivroOrigem) {
        core::CriaLivroOrigem(aviso);
    }
}

/// The column of the target for one that the program does not know. A table has one counter, which the program's have.
dao::Field campoNovo(const jet::Column &coluna, dao::FieldType tipo, bool temContador)
{
    dao::Field campo{coluna.name, tipo};
    campo.size = tipo == dao::FieldType::Text ? coluna.size : 0;
    campo.attributes = coluna.counter && !temContador ? dao::counterAttributes : 0;
    return campo;
}

/// The word of a column's type in a statement, where INTEGER is a Long.
QString tipoDoComando(const dao::Field &campo)
{
    switch (campo.type) {
    case dao::FieldType::Integer:
        return u"SHORT"_s;
    case dao::FieldType::Memo:
        return u"MEMO"_s;
    default:
        return dao::declaredType(campo);
    }
}

/// Makes the plan of the whole work, a table at a time.
class Montagem
{
public:
    Montagem(dao::Database &banco, const std::vector<jet::Table> &origem, const Pedido &pedido, Resultado &resultado)
        : banco_(banco), origem_(origem), pedido_(pedido), resultado_(resultado)
    {
    }

    std::vector<Copia> monta()
    {
        for (const dao::TableDef &tabela : banco_.TableDefs()) {
            doPrograma(tabela);
        }
        for (std::size_t i = 0; i < origem_.size(); ++i) {
            if (!tomadas_.contains(i)) {
                deFora(i);
            }
        }
        return std::move(copias_);
    }

private:
    void doPrograma(const dao::TableDef &tabela);
    void deFora(std::size_t lugar);
    std::optional<Motivo> motivoDeFora(std::size_t lugar) const;
    bool criaTabela(const jet::Table &origem);
    void casaColunas(std::size_t daOrigem, const dao::TableDef &tabela, Tabela &contada);
    std::optional<Motivo> casa(int coluna, Copia &copia, Tabela &contada);
    bool acrescenta(const jet::Column &coluna, dao::FieldType tipo, Copia &copia);
    Tabela &conta(const QString &nome, bool programa, const jet::Table *origem);

    dao::Database &banco_;
    const std::vector<jet::Table> &origem_;
    const Pedido &pedido_;
    Resultado &resultado_;
    QSet<std::size_t> tomadas_;
    std::vector<Copia> copias_;
};

Tabela &Montagem::conta(const QString &nome, bool programa, const jet::Table *origem)
{
    Tabela &contada = resultado_.tabelas.emplace_back();
    contada.nome = nome;
    contada.doPrograma = programa;
    contada.naOrigem = origem != nullptr;
    contada.prometidas = origem != nullptr ? origem->promisedRows : 0;
    return contada;
}

void Montagem::doPrograma(const dao::TableDef &tabela)
{
    const int lugar = lugarDe(origem_, tabela.name());
    if (lugar < 0) {
        conta(tabela.name(), true, nullptr);
        return;
    }
    const auto daOrigem = static_cast<std::size_t>(lugar);
    const jet::Table &fonte = origem_[daOrigem];
    if (!fonte.readable) {
        throw Erro(Falha::TabelaDanificada, {.tabela = fonte.name, .prometidas = fonte.promisedRows});
    }
    tomadas_.insert(daOrigem);
    casaColunas(daOrigem, tabela, conta(tabela.name(), true, &fonte));
}

std::optional<Motivo> Montagem::motivoDeFora(std::size_t lugar) const
{
    const jet::Table &tabela = origem_[lugar];
    if (mesmoNome(tabela.name, tabelaDeTrabalho)) {
        return Motivo::DeTrabalho;
    }
    if (!tabela.readable) {
        return Motivo::Ilegivel;
    }
    const auto mesma = [&tabela](const Tabela &outra) { return !outra.fora && mesmoNome(outra.nome, tabela.name); };
    if (std::any_of(resultado_.tabelas.begin(), resultado_.tabelas.end(), mesma)) {
        return Motivo::Repetida;
    }
    return pedido_.tudo ? std::nullopt : std::optional(Motivo::Desconhecida);
}

void Montagem::deFora(std::size_t lugar)
{
    const jet::Table &origem = origem_[lugar];
    std::optional<Motivo> motivo = motivoDeFora(lugar);
    if (!motivo && !criaTabela(origem)) {
        motivo = Motivo::Ilegivel;
    }
    Tabela &contada = conta(origem.name, false, &origem);
    contada.fora = motivo;
    if (motivo) {
        return;
    }
    const std::vector<dao::TableDef> tabelas = banco_.TableDefs();
    const auto nova = std::find_if(tabelas.begin(), tabelas.end(), [&origem](const dao::TableDef &tabela) {
        return mesmoNome(tabela.name(), origem.name);
    });
    casaColunas(lugar, *nova, contada);
}

/// Columns of one name, or of no type, are told when they are matched.
bool Montagem::criaTabela(const jet::Table &origem)
{
    dao::TableDef tabela(origem.name);
    bool temContador = false;
    QSet<QString> nomes;
    for (const jet::Column &coluna : origem.columns) {
        const auto tipo = TipoDe(coluna.type);
        if (!tipo || nomes.contains(coluna.name.toLower())) {
            continue;
        }
        nomes.insert(coluna.name.toLower());
        tabela.append(campoNovo(coluna, *tipo, temContador));
        temContador = temContador || coluna.counter;
    }
    try {
        banco_.AppendTableDef(tabela);
        return true;
    } catch (const runtime::RuntimeError &) { // a name that the database can't give, or no column at all
        return false;
    }
}

void Montagem::casaColunas(std::size_t daOrigem, const dao::TableDef &tabela, Tabela &contada)
{
    Copia copia{.daOrigem = daOrigem,
                .noResultado = resultado_.tabelas.size() - 1,
                .destino = tabela,
                .fontes = std::vector<std::optional<Fonte>>(tabela.fields().size())};
    const auto &colunas = origem_[daOrigem].columns;
    for (std::size_t i = 0; i < colunas.size(); ++i) {
        if (const auto motivo = casa(static_cast<int>(i), copia, contada)) {
            contada.colunasFora.push_back({.coluna = colunas[i].name, .motivo = *motivo});
        }
    }
    for (std::size_t i = 0; i < copia.fontes.size(); ++i) {
        if (!copia.fontes[i]) {
            contada.colunasAusentes.append(copia.destino.fields()[i].name);
        }
    }
    copias_.push_back(std::move(copia));
}

/// Why the column is left out; none where it is matched.
std::optional<Motivo> Montagem::casa(int coluna, Copia &copia, Tabela &contada)
{
    const jet::Column &daOrigem = origem_[copia.daOrigem].columns[static_cast<std::size_t>(coluna)];
    const auto tipo = TipoDe(daOrigem.type);
    int lugar = lugarDe(copia.destino.fields(), daOrigem.name);
    if (!tipo) {
        return lugar >= 0 || pedido_.tudo ? Motivo::SemTipo : Motivo::Desconhecida;
    }
    if (lugar < 0) {
        if (!pedido_.tudo) {
            return Motivo::Desconhecida;
        }
        if (!acrescenta(daOrigem, *tipo, copia)) {
            return Motivo::Ilegivel;
        }
        contada.colunasMantidas.append(daOrigem.name);
        lugar = static_cast<int>(copia.fontes.size()) - 1;
    }
    auto &fonte = copia.fontes[static_cast<std::size_t>(lugar)];
    if (fonte) {
        return Motivo::Repetida;
    }
    fonte = Fonte{.coluna = coluna,
                  .ehNumero = dao::isNumber(*tipo),
                  .conversor = Conversor(*tipo, copia.destino.fields()[static_cast<std::size_t>(lugar)])};
    if (resultado_.postais && mesmoNome(daOrigem.name, colunaCEP)) {
        fonte->conversor.completaComZeros(algarismosDoCEP);
    }
    return std::nullopt;
}

bool Montagem::acrescenta(const jet::Column &coluna, dao::FieldType tipo, Copia &copia)
{
    const auto &campos = copia.destino.fields();
    const bool temContador =
        std::any_of(campos.begin(), campos.end(), [](const dao::Field &campo) { return campo.isCounter(); });
    const dao::Field campo = campoNovo(coluna, tipo, temContador);
    try {
        banco_.Execute(u"ALTER TABLE ["_s + copia.destino.name() + u"] ADD ["_s + campo.name + u"] "_s +
                       tipoDoComando(campo));
    } catch (const runtime::RuntimeError &) { // a name that the database can't give
        return false;
    }
    copia.destino.append(campo);
    copia.fontes.emplace_back();
    return true;
}

} // namespace

Conteudo ConteudoDe(const std::vector<jet::Table> &origem)
{
    const QStringList nomes = core::TabelasDoPrograma();
    if (std::any_of(nomes.begin(), nomes.end(), [&origem](const QString &nome) { return tem(origem, nome); })) {
        return Conteudo::Oficina;
    }
    return tem(origem, ceps::Tabela().name()) ? Conteudo::Postais : Conteudo::Nenhum;
}

std::vector<Copia> MontaEsquema(const std::shared_ptr<dao::Database> &banco, const std::vector<jet::Table> &origem,
                                const Pedido &pedido, Resultado &resultado)
{
    const dao::Unit juntas;
    if (resultado.postais) {
        banco->AppendTableDef(ceps::Tabela());
    } else {
        criaTabelasDaOficina(banco, tem(origem, tabelaLivroOrigem));
    }
    return Montagem(*banco, origem, pedido, resultado).monta();
}

} // namespace importa
