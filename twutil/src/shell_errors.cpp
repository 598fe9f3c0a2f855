#include "shell_helpers.h"

namespace {

struct ShellError
{
    INT_PTR code;
    const char* text;
};

constexpr ShellError kShellErrors[] = {
    {0, "Zu wenig Arbeitsspeicher oder Ressourcen."},
    {2, "Die Datei wurde nicht gefunden."},
    {3, "Der Pfad wurde nicht gefunden."},
    {5, "Der Zugriff wurde verweigert."},
    {8, "Zu wenig Arbeitsspeicher, um den Vorgang auszuführen."},
    {11, "Die Programmdatei ist ungültig."},
    {26, "Eine Freigabeverletzung ist aufgetreten."},
    {27, "Die Dateizuordnung ist unvollständig oder ungültig."},
    {28, "Die DDE-Anforderung hat das Zeitlimit überschritten."},
    {29, "Die DDE-Transaktion ist fehlgeschlagen."},
    {30, "Die DDE-Transaktion konnte nicht ausgeführt werden, weil andere DDE-Transaktionen bearbeitet wurden."},
    {31, "Diesem Dateityp ist kein Programm zugeordnet."},
    {32, "Eine benötigte Programmbibliothek (DLL) wurde nicht gefunden."},
};

}  // namespace

CString ShellExecuteErrorText(INT_PTR result)
{
    if (result > 32)
        return CString();
    for (const ShellError& e : kShellErrors) {
        if (e.code == result)
            return e.text;
    }
    CString text;
    text.Format("Unbekannter Fehler (Code %lld).", static_cast<long long>(result));
    return text;
}
