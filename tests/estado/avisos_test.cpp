// SPDX-License-Identifier: GPL-3.0-or-later
// The low-space notice against a notification service of the test's own on
// the test's session bus, with a clock the test moves.
#include "estado/avisos.h"

#include "apoyo/bus.h"
#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/comun.h"
#include "estado/navegacion.h"

#include <QDBusPendingCallWatcher>

using namespace std::chrono;

namespace {

constexpr int64_t GB = 1'000'000'000;

struct Prueba {
    apoyo::CasaPrueba casa;
    apoyo::Variable home{"VORLANO_HOME", casa.raiz().string()};
    apoyo::ServidorNotificaciones servidor;
    Preferencias preferencias{QString::fromStdString(casa.ruta("ajustes.conf").string())};
    Fecha ahora = Fecha(hours(24 * 365 * 40));
    Avisos avisos{preferencias, [this] { return ahora; }};

    Prueba()
    {
        preferencias.registrarDefectos();
        preferencias.ponerAvisoGB(10);
        avisos.configurar();
    }
    // The notices the service has been asked for so far. The service answers
    // in order, so once a question asked after revisar has its answer, any
    // Notify sent before it has been taken, and its answer read.
    size_t enviados()
    {
        QDBusPendingCallWatcher w(QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("GetCapabilities"))));
        QSignalSpy listo(&w, &QDBusPendingCallWatcher::finished);
        if (!w.isFinished())
            listo.wait(120'000);
        return servidor.avisos().size();
    }
};

} // namespace

// The limit: the variable of test mode when it is a whole number, else the
// setting; 0 is off, and off arms nothing either. Then, at 10 GB, each row:
// free bytes at an hour of the clock, and how many notices have gone out
// after it; then a click on the last.
TEST(Avisos, LimiteUmbralesBandaY24HorasYClic)
{
    Prueba p;
    ASSERT_TRUE(p.servidor.activo());
    const std::pair<std::optional<std::string>, int64_t> casos[] = {
        {std::nullopt, 10}, {"abc", 10}, {"", 10}, {"+25", 25}, {"-3", -3}, {"7 ", 10}, {"+-3", 10}, {"0", 0}};
    for (const auto& [variable, limite] : casos) {
        apoyo::Variable v("VORLANO_AVISO_GB", variable);
        EXPECT_EQ(p.avisos.limiteGB(), limite) << variable.value_or("(none)");
    }
    {
        apoyo::Variable v("VORLANO_AVISO_GB", "25");
        apoyo::Variable fuera("VORLANO_HOME", std::nullopt);
        EXPECT_EQ(p.avisos.limiteGB(), 10);
    }
    p.preferencias.ponerAvisoGB(0);
    p.avisos.revisar(1 * GB);
    p.avisos.revisar(900 * GB);
    EXPECT_EQ(p.enviados(), 0u);
    EXPECT_FALSE(p.preferencias.booleano(Avisos::claveArmado).has_value());
    p.preferencias.ponerAvisoGB(10);

    struct Paso {
        int64_t libre;
        int horas;
        size_t enviados;
    };
    const Paso pasos[] = {
        {10 * GB, 0, 0},          // at the limit: not under it
        {10 * GB - 1, 0, 1},      // under it, armed from a fresh store
        {5 * GB, 1, 1},           // disarmed
        {12 * GB, 2, 1},          // the band's top is still inside it
        {9 * GB, 3, 1},           // so nothing re-armed
        {12 * GB + 1, 4, 1},      // above the band: armed
        {9 * GB, 5, 1},           // but within 24 hours of the last
        {9 * GB, 24, 2},          // 24 hours on, still short: it goes out
        {1 * GB, 30, 2},          // disarmed again
        {0, 60, 2},               // not a real figure
    };
    for (const Paso& paso : pasos) {
        p.ahora = Fecha(hours(24 * 365 * 40 + paso.horas));
        p.avisos.revisar(paso.libre);
        EXPECT_EQ(p.enviados(), paso.enviados) << paso.libre << " at hour " << paso.horas;
    }
    const auto& a = p.servidor.avisos();
    ASSERT_EQ(a.size(), 2u);
    EXPECT_EQ(a[0].titulo, QStringLiteral("Te queda poco espacio"));
    EXPECT_EQ(a[0].cuerpo,
              QStringLiteral("Quedan 10 GB libres. Abre Vorlano para ver qué se puede limpiar."));
    EXPECT_TRUE(a[0].acciones.contains(QStringLiteral("default")));
    // The second takes the place of the first.
    EXPECT_EQ(a[1].reemplaza, a[0].numero);
    // A click on it brings up the window; one on a notice not ours doesn't.
    int abierta = 0;
    Ventana::abrir = [&] { ++abierta; };
    p.servidor.pulsar(a[1].numero + 7);
    p.servidor.pulsar(a[1].numero);
    EXPECT_TRUE(hasta([&] { return abierta > 0; }));
    EXPECT_EQ(abierta, 1);
    Ventana::abrir = nullptr;

    // The facts survive in the store: a new Avisos on it stays disarmed.
    Avisos otra(p.preferencias, [&] { return p.ahora + hours(100); });
    otra.revisar(1 * GB);
    EXPECT_EQ(p.enviados(), 2u);
}
