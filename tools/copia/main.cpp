// Copies the database and the pictures of a program folder, and brings copies back. The batch files call it.
#include "core/modulo.h"
#include "platform/files/files.h"
#include "platform/runtime/console.h"
#include "platform/runtime/error.h"
#include "tools/copia/banco.h"
#include "tools/copia/figuras.h"
#include "tools/copia/lugares.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

enum Saida { feito = 0, falhou = 1, malChamado = 2 };

const QString uso = u"uso: tarvelo-copia [--pasta PASTA] [--espera SEGUNDOS] OPERAÇÃO LUGAR...\n"
                    u"\n"
                    u"  banco LUGAR...             copia o banco de dados, com o programa aberto ou não\n"
                    u"  figuras LUGAR...           copia as figuras da pasta DADOS\n"
                    u"  restaura-banco LUGAR...    põe uma cópia no lugar do banco de dados\n"
                    u"  restaura-figuras LUGAR...  põe uma cópia no lugar das figuras\n"
                    u"\n"
                    u"Uma cópia vai para a primeira pasta que existir; se não existir nenhuma, a última\n"
                    u"é criada. Cada cópia tem a data no nome e ficam guardadas as últimas 10.\n"
                    u"É restaurada a cópia mais nova da primeira pasta que tiver uma; um LUGAR pode ser\n"
                    u"também a própria cópia. O que havia antes é guardado, com a data no nome.\n"
                    u"\n"
                    u"  --pasta PASTA      a pasta do programa, a do config.ini (sem isto: a que o programa usa)\n"
                    u"  --espera SEGUNDOS  quanto uma restauração espera que o programa feche (sem isto: 30)\n"
                    u"\n"
                    u"Termina com 0: feito; 1: não foi feito, e diz por quê; 2: chamado de forma errada.\n"_s;

struct Chamada {
    QString pasta;
    std::chrono::seconds espera{30};
    QString operacao;
    QStringList lugares;
};

QString copiaBanco(const Chamada &chamada)
{
    return copias::copiaBanco(copias::bancoDaPasta(chamada.pasta), chamada.lugares);
}

QString copiaFiguras(const Chamada &chamada)
{
    return copias::copiaFiguras(chamada.pasta, chamada.lugares);
}

QString restauraBanco(const Chamada &chamada)
{
    return copias::restauraBanco({.pasta = chamada.pasta,
                                  .banco = copias::bancoDaPasta(chamada.pasta),
                                  .lugares = chamada.lugares,
                                  .espera = chamada.espera});
}

QString restauraFiguras(const Chamada &chamada)
{
    return copias::restauraFiguras(chamada.pasta, chamada.lugares);
}

struct Operacao {
    QStringView nome;
    QString (*faz)(const Chamada &);
};

constexpr auto operacoes = std::to_array<Operacao>({
    {u"banco", copiaBanco},
    {u"figuras", copiaFiguras},
    {u"restaura-banco", restauraBanco},
    {u"restaura-figuras", restauraFiguras},
});

/// Takes an option and its value out of the arguments; none where it stands last, without one.
std::optional<QString> tira(QStringList &argumentos, const QString &opcao, const QString &padrao)
{
    const qsizetype lugar = argumentos.indexOf(opcao);
    if (lugar < 0) {
        return padrao;
    }
    if (lugar + 1 >= argumentos.size()) {
        return std::nullopt;
    }
    argumentos.removeAt(lugar);
    return argumentos.takeAt(lugar);
}

std::optional<Chamada> leChamada(QStringList argumentos)
{
    const std::optional<QString> pasta = tira(argumentos, u"--pasta"_s, QString());
    const std::optional<QString> espera = tira(argumentos, u"--espera"_s, u"30"_s);
    bool numero = false;
    const int segundos = espera.value_or(QString()).toInt(&numero);
    const bool outraOpcao = std::ranges::any_of(argumentos, [](const QString &um) { return um.startsWith(u"--"); });
    if (!pasta || !numero || segundos < 0 || outraOpcao || argumentos.size() < 2 || argumentos.contains(QString())) {
        return std::nullopt;
    }
    Chamada chamada{.pasta = pasta->isEmpty() ? QString() : QDir(*pasta).absolutePath(),
                    .espera = std::chrono::seconds(segundos),
                    .operacao = argumentos.takeFirst(),
                    .lugares = argumentos};
    return chamada;
}

int executa(const Operacao &operacao, Chamada chamada)
{
    if (chamada.pasta.isEmpty()) {
        chamada.pasta = core::App::Path();
    }
    try {
        runtime::print(operacao.faz(chamada) + u'\n');
        return feito;
    } catch (const copias::Erro &erro) {
        runtime::print(erro.texto() + u'\n', stderr);
    } catch (const runtime::RuntimeError &erro) {
        runtime::print(erro.description() + u'\n', stderr);
    }
    return falhou;
}

} // namespace

int main(int argc, char **argv)
{
    files::keepToGroup();
    const QCoreApplication programa(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments().mid(1);
    if (argumentos == QStringList{u"--ajuda"_s}) {
        runtime::print(uso);
        return feito;
    }
    const std::optional<Chamada> chamada = leChamada(argumentos);
    if (chamada) {
        for (const Operacao &operacao : operacoes) {
            if (operacao.nome == chamada->operacao) {
                return executa(operacao, *chamada);
            }
        }
    }
    runtime::print(uso, stderr);
    return malChamado;
}
