#include "tools/importa/importa.h"

#include "platform/dao/databasedraft.h"
#include "platform/files/files.h"
#include "platform/jet/header.h"
#include "platform/jet/stream.h"
#include "platform/runtime/error.h"
#include "tools/importa/apuracao.h"
#include "tools/importa/destino.h"
#include "tools/importa/esquema.h"
#include "tools/importa/linhas.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

constexpr int arquivoEmUso = 3051;
constexpr int discoCheio = 3183;

struct Recusada {
    jet::Kind especie;
    Falha falha;
};

constexpr std::array recusadas{
    Recusada{jet::Kind::Unreadable, Falha::OrigemSemPermissao},
    Recusada{jet::Kind::None, Falha::NaoEJet},
    Recusada{jet::Kind::Jet3, Falha::Jet3},
    Recusada{jet::Kind::Later, Falha::FormatoPosterior},
    Recusada{jet::Kind::Password, Falha::ComSenha},
    Recusada{jet::Kind::Encrypted, Falha::Criptografada},
    Recusada{jet::Kind::Truncated, Falha::Truncada},
};

void confereOrigem(const QString &origem)
{
    if (!QFileInfo::exists(origem)) {
        throw Erro(Falha::OrigemAusente);
    }
    if (!files::isOrdinary(origem)) {
        throw Erro(Falha::OrigemNaoEArquivo);
    }
    const jet::Kind especie = jet::examine(origem);
    for (const Recusada &recusada : recusadas) {
        if (recusada.especie == especie) {
            throw Erro(recusada.falha);
        }
    }
}

std::unique_ptr<jet::Reader> abreOrigem(const Pedido &pedido)
{
    const QString programa = pedido.leitor.isEmpty() ? QCoreApplication::applicationFilePath() : pedido.leitor;
    try {
        return std::make_unique<jet::Reader>(pedido.origem, jet::Server{programa, {u"--le"_s}}, pedido.silencio);
    } catch (const jet::Damaged &dano) {
        switch (dano.damage()) {
        case jet::Damage::NotStarted:
            throw Erro(Falha::LeitorNaoIniciou);
        case jet::Damage::Silent:
            throw Erro(Falha::LeituraNaoTermina);
        default:
            throw Erro(Falha::CatalogoDanificado);
        }
    }
}

/// What the finished file holds, read as it lies: this is what is compared with the source.
Apuracao leDoDestino(dao::Database &banco, const dao::TableDef &tabela)
{
    Apuracao apuracao(tabela);
    QStringList nomes;
    for (const int lugar : apuracao.colunas()) {
        nomes.append(tabela.fields()[static_cast<std::size_t>(lugar)].name);
    }
    if (nomes.isEmpty()) { // only its rows are counted
        nomes.append(tabela.fields().front().name);
    }
    nomes.removeDuplicates();
    auto linha = banco.OpenRecordset(u"SELECT ["_s + nomes.join(u"], ["_s) + u"] FROM ["_s + tabela.name() + u']');
    std::vector<int> lugares(apuracao.colunas().size());
    std::transform(apuracao.colunas().begin(), apuracao.colunas().end(), lugares.begin(),
                   [&](int lugar) { return linha.fieldPlace(tabela.fields()[static_cast<std::size_t>(lugar)].name); });
    for (; !linha.Eof(); linha.MoveNext()) {
        apuracao.conta([&](std::size_t i) { return linha.value(lugares[i]); });
    }
    return apuracao;
}

/// One import from its beginning to its end.
class Importacao
{
public:
    Importacao(const Pedido &pedido, const Andamento &andamento) : pedido_(pedido), andamento_(andamento) {}

    Resultado faz()
    {
        confereOrigem(pedido_.origem);
        Destino destino(pedido_);
        const auto leitor = abreOrigem(pedido_);
        const Conteudo conteudo = ConteudoDe(leitor->tables());
        if (conteudo == Conteudo::Nenhum) {
            throw Erro(Falha::SemTabelas);
        }
        resultado_.postais = conteudo == Conteudo::Postais;
        dao::DatabaseDraft rascunho(pedido_.destino);
        const auto copias = MontaEsquema(rascunho.database(), leitor->tables(), pedido_, resultado_);
        const auto daOrigem = copiaTabelas(*leitor, *rascunho.database(), copias);
        avisa();
        rascunho.examine();
        compara(rascunho.name(), copias, daOrigem);
        poeNoLugar(rascunho, destino);
        return std::move(resultado_);
    }

private:
    void avisa()
    {
        if (!andamento_({.fase = Passo::Fase::Conferencia})) {
            throw Erro(Falha::Interrompida);
        }
    }

    std::vector<Apuracao> copiaTabelas(jet::Reader &leitor, dao::Database &banco, const std::vector<Copia> &copias)
    {
        Linhas linhas(leitor, banco, andamento_, resultado_);
        qint64 total = 0;
        for (const Copia &copia : copias) {
            total += resultado_.tabelas[copia.noResultado].prometidas;
        }
        linhas.promete(total);
        std::vector<Apuracao> apuradas;
        apuradas.reserve(copias.size());
        for (const Copia &copia : copias) {
            apuradas.push_back(linhas.copia(copia));
        }
        return apuradas;
    }

    void compara(const QString &arquivo, const std::vector<Copia> &copias, const std::vector<Apuracao> &daOrigem)
    {
        const auto banco = dao::DBEngine::OpenDatabase(arquivo, true);
        for (std::size_t i = 0; i < copias.size(); ++i) {
            const Apuracao noDestino = leDoDestino(*banco, copias[i].destino);
            Tabela &tabela = resultado_.tabelas[copias[i].noResultado];
            tabela.gravadas = noDestino.linhas();
            tabela.somas = somas(copias[i], daOrigem[i], noDestino);
            if (auto saldo = daOrigem[i].compara(noDestino)) {
                resultado_.saldos.push_back(std::move(*saldo));
            }
            avisa();
        }
    }

    static std::vector<Soma> somas(const Copia &copia, const Apuracao &daOrigem, const Apuracao &noDestino)
    {
        std::vector<Soma> lista;
        for (std::size_t i = 0; i < daOrigem.somas().size(); ++i) {
            const auto campo = static_cast<std::size_t>(daOrigem.colunas()[i]);
            const auto &fonte = copia.fontes[campo];
            Soma &soma = lista.emplace_back();
            soma.coluna = copia.destino.fields()[campo].name;
            soma.destino = noDestino.somas()[i];
            if (fonte && fonte->ehNumero) {
                soma.origem = daOrigem.somas()[i];
            }
        }
        return lista;
    }

    void poeNoLugar(dao::DatabaseDraft &rascunho, Destino &destino)
    {
        resultado_.guardado = destino.daLugar();
        try {
            rascunho.putInPlace();
        } catch (const runtime::RuntimeError &) {
            QFile::remove(resultado_.guardado);
            throw;
        }
    }

    const Pedido &pedido_;
    const Andamento &andamento_;
    Resultado resultado_;
};

bool veioInteira(const Tabela &tabela)
{
    const bool deixada = tabela.fora && *tabela.fora != Motivo::DeTrabalho;
    const bool linhas = tabela.fora || (tabela.lidas == tabela.prometidas && tabela.gravadas == tabela.lidas);
    return !deixada && linhas && tabela.colunasFora.empty();
}

} // namespace

bool Resultado::tudoVeio() const
{
    return ocorrencias.empty() && std::all_of(tabelas.begin(), tabelas.end(), veioInteira) &&
           std::all_of(saldos.begin(), saldos.end(), [](const Saldo &saldo) { return saldo.diferentes == 0; });
}

Resultado Importa(const Pedido &pedido, const Andamento &andamento)
{
    try {
        return Importacao(pedido, andamento).faz();
    } catch (const runtime::RuntimeError &erro) {
        switch (erro.number()) {
        case discoCheio:
            throw Erro(Falha::DiscoCheio);
        case arquivoEmUso:
            throw Erro(Falha::DestinoSemPermissao);
        default:
            throw Erro(Falha::Outra, {.detalhe = erro.description()});
        }
    }
}

} // namespace importa
