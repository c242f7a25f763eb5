// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/preferencias.h"

#include <QJSEngine>

#include <limits>

// The native format is an INI file named Vorlano.conf on Linux and the
// defaults store on a Mac.
Preferencias::Preferencias()
    : almacen_(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Vorlano"),
                                           QStringLiteral("Vorlano")))
{
}

Preferencias::Preferencias(const QString& archivo, QObject* padre)
    : QObject(padre), almacen_(std::make_unique<QSettings>(archivo, QSettings::IniFormat))
{
}

Preferencias& Preferencias::shared()
{
    static auto* p = new Preferencias;
    return *p;
}

Preferencias* Preferencias::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

void Preferencias::registrarDefectos()
{
    defectos_[QLatin1String(claveBarraMenu)] = true;
    defectos_[QLatin1String(claveAvisoGB)] = 20;
}

std::optional<QVariant> Preferencias::valor(const char* clave) const
{
    const QString k = QLatin1String(clave);
    if (almacen_->contains(k))
        return almacen_->value(k);
    return std::nullopt;
}

std::optional<bool> Preferencias::booleano(const char* clave) const
{
    // An INI file holds text: "true" and "false" are what QSettings writes.
    if (const auto v = valor(clave)) {
        if (v->typeId() == QMetaType::Bool)
            return v->toBool();
        const QString s = v->toString().trimmed();
        if (s == QLatin1String("true"))
            return true;
        if (s == QLatin1String("false"))
            return false;
    }
    if (const auto d = defectos_.find(QLatin1String(clave)); d != defectos_.end())
        return d->second.toBool();
    return std::nullopt;
}

std::optional<int64_t> Preferencias::entero(const char* clave) const
{
    if (const auto v = valor(clave)) {
        bool ok = false;
        const qlonglong n = v->toString().trimmed().toLongLong(&ok);
        if (ok)
            return n;
    }
    if (const auto d = defectos_.find(QLatin1String(clave)); d != defectos_.end())
        return d->second.toLongLong();
    return std::nullopt;
}

std::optional<QString> Preferencias::texto(const char* clave) const
{
    if (const auto v = valor(clave); v && v->canConvert<QString>())
        return v->toString();
    return std::nullopt;
}

void Preferencias::poner(const char* clave, const QVariant& valor)
{
    almacen_->setValue(QLatin1String(clave), valor);
    almacen_->sync();
}

int Preferencias::avisoGB() const
{
    const int64_t v = entero(claveAvisoGB).value_or(0);
    return int(std::clamp<int64_t>(v, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

void Preferencias::ponerBarraMenu(bool v)
{
    if (v == conBarraMenu())
        return;
    poner(claveBarraMenu, v);
    Q_EMIT barraMenuChanged();
}

void Preferencias::ponerAvisoGB(int v)
{
    if (v == avisoGB())
        return;
    poner(claveAvisoGB, v);
    Q_EMIT avisoGBChanged();
}

void Preferencias::ponerBienvenidaVista(bool v)
{
    if (v == bienvenidaVista())
        return;
    poner(claveBienvenida, v);
    Q_EMIT bienvenidaVistaChanged();
}
