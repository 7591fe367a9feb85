#pragma once

#include "platform/files/filelock.h"
#include "tools/importa/importa.h"

#include <memory>
#include <vector>

namespace importa
{

/// The place where the finished database is to stand. While it lives the program of that place does not start.
class Destino
{
public:
    /// Looks at what stands there and takes away what killed imports left. Raises `Erro` where the target can't be
    /// taken: the source itself, no file, in use, with data that nobody said may give way.
    explicit Destino(const Pedido &pedido);

    /// Looks once more, as time has passed, and keeps beside it what has to give way: its name, or "" where there was
    /// nothing to keep.
    QString daLugar();

private:
    void confere() const;
    bool temDados() const;
    void travaPrograma(const QString &pasta);

    const Pedido &pedido_;
    std::vector<std::unique_ptr<files::FileLock>> travas_;
};

} // namespace importa
