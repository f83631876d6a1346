<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CBarChart</name>
    <message>
        <source>No jumps</source>
        <translation>Keine Sprünge</translation>
    </message>
</context>
<context>
    <name>CDlgCardImport</name>
    <message>
        <source>Import tracks</source>
        <translation>Tracks importieren</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>exit %1 %2 · freefall %3 · %4</source>
        <translation>Absprung %1 %2 · Freifall %3 · %4</translation>
    </message>
    <message>
        <source>New jump</source>
        <translation>Neuer Sprung</translation>
    </message>
    <message>
        <source>Into jump %1 (same day, no recording)</source>
        <translation>In Sprung %1 (gleicher Tag, ohne Aufzeichnung)</translation>
    </message>
    <message>
        <source>No new jump was found.</source>
        <translation>Kein neuer Sprung gefunden.</translation>
    </message>
    <message>
        <source>Jumps (%1)</source>
        <translation>Sprünge (%1)</translation>
    </message>
    <message>
        <source>Skipped (%1)</source>
        <translation>Übersprungen (%1)</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
</context>
<context>
    <name>CDlgCsvImport</name>
    <message>
        <source>Import CSV - %1</source>
        <translation>CSV importieren - %1</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Please choose</source>
        <translation>Bitte wählen</translation>
    </message>
    <message>
        <source>Year-month-day (2024-12-31)</source>
        <translation>Jahr-Monat-Tag (2024-12-31)</translation>
    </message>
    <message>
        <source>Day first (31.12.2024)</source>
        <translation>Tag zuerst (31.12.2024)</translation>
    </message>
    <message>
        <source>Month first (12/31/2024)</source>
        <translation>Monat zuerst (12/31/2024)</translation>
    </message>
    <message>
        <source>Metres</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Fuß</translation>
    </message>
    <message>
        <source>Skip the row</source>
        <translation>Zeile überspringen</translation>
    </message>
    <message>
        <source>Replace an unsigned jump</source>
        <translation>Nicht unterschriebenen Sprung ersetzen</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>Datumsform</translation>
    </message>
    <message>
        <source>Heights</source>
        <translation>Höhen</translation>
    </message>
    <message>
        <source>Same number</source>
        <translation>Gleiche Nummer</translation>
    </message>
    <message>
        <source>Jump number</source>
        <translation>Sprungnummer</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Sprungplatz</translation>
    </message>
    <message>
        <source>Aircraft</source>
        <translation>Flugzeug</translation>
    </message>
    <message>
        <source>Jump type</source>
        <translation>Sprungart</translation>
    </message>
    <message>
        <source>Exit height</source>
        <translation>Absprunghöhe</translation>
    </message>
    <message>
        <source>Opening height</source>
        <translation>Öffnungshöhe</translation>
    </message>
    <message>
        <source>Freefall time</source>
        <translation>Freifallzeit</translation>
    </message>
    <message>
        <source>Fall rate</source>
        <translation>Fallrate</translation>
    </message>
    <message>
        <source>Wind direction</source>
        <translation>Windrichtung</translation>
    </message>
    <message>
        <source>Wind speed</source>
        <translation>Windgeschwindigkeit</translation>
    </message>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Landing</source>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Team</source>
        <translation>Team</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Gruppengröße</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Malfunction</source>
        <translation>Störung</translation>
    </message>
    <message>
        <source>Signed by</source>
        <translation>Unterschrieben von</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>%1 rows: %2 new jumps, %3 replaced, %4 skipped.</source>
        <translation>%1 Zeilen: %2 neue Sprünge, %3 ersetzt, %4 übersprungen.</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>Jump %1</source>
        <translation>Sprung %1</translation>
    </message>
    <message>
        <source>Exit %1 %2</source>
        <translation>Absprung %1 %2</translation>
    </message>
    <message>
        <source>Freefall %1</source>
        <translation>Freifall %1</translation>
    </message>
    <message>
        <source>replaces the jump of the logbook</source>
        <translation>ersetzt den Sprung im Sprungbuch</translation>
    </message>
    <message>
        <source>No row of the file can be imported.</source>
        <translation>Keine Zeile der Datei kann importiert werden.</translation>
    </message>
</context>
<context>
    <name>CDlgEquipment</name>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Harness</source>
        <translation>Gurtzeug</translation>
    </message>
    <message>
        <source>SN</source>
        <translation>Ser.-Nr.</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Hauptschirm</translation>
    </message>
    <message>
        <source>Reserve</source>
        <translation>Reserveschirm</translation>
    </message>
    <message>
        <source>AAD</source>
        <translation>Öffnungsautomat</translation>
    </message>
    <message>
        <source>Inspection/Repack Date</source>
        <translation>Reservepackdatum</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Prev. Jumps</source>
        <translation>Frühere Sprünge</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
</context>
<context>
    <name>CDlgEquipments</name>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
</context>
<context>
    <name>CDlgEquipmentsPageAlarm</name>
    <message>
        <source>Enable Rig Alarms</source>
        <translation>An Reservepacken erinnern</translation>
    </message>
    <message>
        <source>Days prior to due date</source>
        <translation>Tage vor dem Termin</translation>
    </message>
    <message>
        <source>Days between inspections</source>
        <translation>Packintervall (Tage)</translation>
    </message>
</context>
<context>
    <name>CDlgEquipmentsPageEquipments</name>
    <message>
        <source>Gears</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Equipments</source>
        <translation>Ausrüstungen</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Neu...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
</context>
<context>
    <name>CDlgJumpPageDetails</name>
    <message>
        <source>Jump</source>
        <translation>Sprung</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Absprung­höhe</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnungs­höhe</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Malfunction</source>
        <translation>Störung</translation>
    </message>
</context>
<context>
    <name>CDlgJumpPageFallrate</name>
    <message>
        <source>Delay</source>
        <translation>Freifallzeit</translation>
    </message>
    <message>
        <source>VMax</source>
        <translation>VMax</translation>
    </message>
    <message>
        <source>VAvg</source>
        <translation>VMittel</translation>
    </message>
    <message>
        <source>Wind</source>
        <translation>Wind</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Wind­richtung</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Fallrate</source>
        <translation>Fallrate</translation>
    </message>
</context>
<context>
    <name>CDlgJumpPageInfo</name>
    <message>
        <source>Size</source>
        <translation>Gruppengröße</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Sprungplatz</translation>
    </message>
    <message>
        <source>Aircraft</source>
        <translation>Flugzeug</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Sprungart</translation>
    </message>
    <message>
        <source>Landing</source>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Team</source>
        <translation>Team</translation>
    </message>
</context>
<context>
    <name>CDlgJumpPageRecording</name>
    <message>
        <source>Track</source>
        <translation>Track</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
</context>
<context>
    <name>CDlgJumpPageSignature</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Remove the last stroke</source>
        <translation>Letzten Strich entfernen</translation>
    </message>
    <message>
        <source>Signer</source>
        <translation>Zeuge</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>Licence no.</source>
        <translation>Lizenz-Nr.</translation>
    </message>
    <message>
        <source>Sealed: nothing has changed since the jump was signed.</source>
        <translation>Versiegelt: Seit der Unterschrift hat sich nichts geändert.</translation>
    </message>
    <message>
        <source>Changed after signing: the jump no longer matches its seal. What changed cannot be told, only that something did.</source>
        <translation>Nach der Unterschrift geändert: Der Sprung passt nicht mehr zu seinem Siegel. Was sich geändert hat, lässt sich nicht sagen, nur dass sich etwas geändert hat.</translation>
    </message>
    <message>
        <source>Signed without a seal: changes to this jump cannot be detected.</source>
        <translation>Ohne Siegel unterschrieben: Änderungen an diesem Sprung lassen sich nicht erkennen.</translation>
    </message>
</context>
<context>
    <name>CDlgPreferences</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Imperial</source>
        <translation>Imperial</translation>
    </message>
    <message>
        <source>Metric</source>
        <translation>Metrisch</translation>
    </message>
    <message>
        <source>Display Glide as</source>
        <translation>Gleitzahl als</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Verhältnis</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Display Speed as</source>
        <translation>Geschwindigkeit in</translation>
    </message>
    <message>
        <source>Previous Jumps</source>
        <translation>Frühere Sprünge</translation>
    </message>
    <message>
        <source>Previous Freefall Time</source>
        <translation>Frühere Freifallzeit</translation>
    </message>
</context>
<context>
    <name>CDlgPrintOptions</name>
    <message>
        <source>Print options</source>
        <translation>Druckoptionen</translation>
    </message>
    <message>
        <source>The whole logbook</source>
        <translation>Das ganze Sprungbuch</translation>
    </message>
    <message>
        <source>Jumps numbered</source>
        <translation>Sprünge mit den Nummern</translation>
    </message>
    <message>
        <source>The jumps the list shows</source>
        <translation>Die Sprünge, die die Liste zeigt</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>A4, landscape</source>
        <translation>A4, quer</translation>
    </message>
    <message>
        <source>Letter, landscape</source>
        <translation>Letter, quer</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>A page for each recording</source>
        <translation>Eine Seite für jede Aufzeichnung</translation>
    </message>
</context>
<context>
    <name>CDlgStatistics</name>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>Charts</source>
        <translation>Grafik</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>As of %1</source>
        <translation>Stand %1</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>Sprünge</translation>
    </message>
    <message>
        <source>Logged jumps</source>
        <translation>Eingetragene Sprünge</translation>
    </message>
    <message>
        <source>Jumps before this logbook</source>
        <translation>Sprünge vor diesem Sprungbuch</translation>
    </message>
    <message>
        <source>Freefall time</source>
        <translation>Freifallzeit</translation>
    </message>
    <message>
        <source>Freefall before this logbook</source>
        <translation>Freifall vor diesem Sprungbuch</translation>
    </message>
    <message>
        <source>Canopy time (%1 recorded)</source>
        <translation>Schirmfahrtzeit (%1 aufgezeichnet)</translation>
    </message>
    <message>
        <source>Freefall distance</source>
        <translation>Freifallstrecke</translation>
    </message>
    <message>
        <source>Canopy distance</source>
        <translation>Schirmfahrtstrecke</translation>
    </message>
    <message>
        <source>Highest exit [%1]</source>
        <translation>Höchster Absprung [%1]</translation>
    </message>
    <message>
        <source>Longest freefall</source>
        <translation>Längster Freifall</translation>
    </message>
    <message>
        <source>Fastest speed [%1]</source>
        <translation>Höchste Geschwindigkeit [%1]</translation>
    </message>
    <message>
        <source>Cutaways</source>
        <translation>Trennungen</translation>
    </message>
    <message>
        <source>Signed jumps</source>
        <translation>Unterschriebene Sprünge</translation>
    </message>
    <message>
        <source>Unsigned jumps</source>
        <translation>Nicht unterschriebene Sprünge</translation>
    </message>
    <message>
        <source>Jumps in the last 12 months</source>
        <translation>Sprünge der letzten 12 Monate</translation>
    </message>
    <message>
        <source>Freefall in the last 12 months</source>
        <translation>Freifall der letzten 12 Monate</translation>
    </message>
    <message>
        <source>Jumping days</source>
        <translation>Sprungtage</translation>
    </message>
    <message>
        <source>Jumps per jumping day</source>
        <translation>Sprünge je Sprungtag</translation>
    </message>
    <message>
        <source>Most jumps in a day</source>
        <translation>Meiste Sprünge an einem Tag</translation>
    </message>
    <message>
        <source>Longest streak of jumping days</source>
        <translation>Längste Folge von Sprungtagen</translation>
    </message>
    <message>
        <source>Longest gap (days)</source>
        <translation>Längste Pause (Tage)</translation>
    </message>
    <message>
        <source>Days since the last jump</source>
        <translation>Tage seit dem letzten Sprung</translation>
    </message>
    <message>
        <source>Jumps per month</source>
        <translation>Sprünge je Monat</translation>
    </message>
    <message>
        <source>Jumps per year</source>
        <translation>Sprünge je Jahr</translation>
    </message>
    <message>
        <source>Freefall hours per year</source>
        <translation>Freifallstunden je Jahr</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(ohne Angabe)</translation>
    </message>
    <message>
        <source>Top drop zones</source>
        <translation>Häufigste Sprungplätze</translation>
    </message>
    <message>
        <source>Top aircraft</source>
        <translation>Häufigste Flugzeuge</translation>
    </message>
    <message>
        <source>Per drop zone</source>
        <translation>Je Sprungplatz</translation>
    </message>
    <message>
        <source>Per aircraft</source>
        <translation>Je Flugzeug</translation>
    </message>
    <message>
        <source>Per type</source>
        <translation>Je Sprungart</translation>
    </message>
    <message>
        <source>Per rig</source>
        <translation>Je Ausrüstung</translation>
    </message>
    <message>
        <source>Per fall rate</source>
        <translation>Je Fallrate</translation>
    </message>
    <message>
        <source>Per year</source>
        <translation>Je Jahr</translation>
    </message>
    <message>
        <source>Per month</source>
        <translation>Je Monat</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Freefall</source>
        <translation>Freifall</translation>
    </message>
    <message>
        <source>First</source>
        <translation>Erster</translation>
    </message>
    <message>
        <source>Last</source>
        <translation>Letzter</translation>
    </message>
    <message>
        <source>Since inspection</source>
        <translation>Seit Prüfung</translation>
    </message>
</context>
<context>
    <name>CDlgUserOwner</name>
    <message>
        <source>Owner</source>
        <translation>Inhaber</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Member No.</source>
        <translation>Mitglieds-Nr.</translation>
    </message>
</context>
<context>
    <name>CDlgUserPageMembership</name>
    <message>
        <source>Edit...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Enable Membership Alarm</source>
        <translation>An Ablauf erinnern</translation>
    </message>
    <message>
        <source>Days prior do due date</source>
        <translation>Tage vor Ablauf</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Member No.</source>
        <translation>Mitglieds-Nr.</translation>
    </message>
</context>
<context>
    <name>CDurationPadDlg</name>
    <message>
        <source>Minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
</context>
<context>
    <name>CFileDialogs</name>
    <message>
        <source>Tervola Files (*.tvz)</source>
        <translation>Tervola-Sprungbücher (*.tvz)</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Import track</source>
        <translation>Track importieren</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>GPS tracks (*.csv *.CSV)</source>
        <translation>GPS-Tracks (*.csv *.CSV)</translation>
    </message>
    <message>
        <source>Export selection</source>
        <translation>Auswahl exportieren</translation>
    </message>
    <message>
        <source>CSV tables (*.csv)</source>
        <translation>CSV-Tabellen (*.csv)</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>JSON-Dateien (*.json)</translation>
    </message>
    <message>
        <source>Export PDF</source>
        <translation>PDF exportieren</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Import tracks</source>
        <translation>Tracks importieren</translation>
    </message>
    <message>
        <source>Import CSV</source>
        <translation>CSV importieren</translation>
    </message>
    <message>
        <source>Spreadsheets (*.csv *.CSV *.txt *.tsv)</source>
        <translation>Tabellen (*.csv *.CSV *.txt *.tsv)</translation>
    </message>
</context>
<context>
    <name>CJumpDetailsPane</name>
    <message>
        <source>No jump selected</source>
        <translation>Kein Sprung ausgewählt</translation>
    </message>
    <message>
        <source>Jump %1</source>
        <translation>Sprung %1</translation>
    </message>
    <message>
        <source>%1 (licence %2)</source>
        <translation>%1 (Lizenz %2)</translation>
    </message>
</context>
<context>
    <name>CJumpTableModel</name>
    <message>
        <source>Signed</source>
        <translation>Unterschrieben</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
</context>
<context>
    <name>CKqNumberField</name>
    <message>
        <source>Keypad</source>
        <translation>Tastenfeld</translation>
    </message>
</context>
<context>
    <name>CKqPadDlg</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CKqTimeField</name>
    <message>
        <source>Keypad</source>
        <translation>Tastenfeld</translation>
    </message>
</context>
<context>
    <name>CLicenceStatusPane</name>
    <message>
        <source>Student</source>
        <translation>Schüler</translation>
    </message>
    <message>
        <source>Licence %1</source>
        <translation>Lizenz %1</translation>
    </message>
    <message>
        <source>%1: the highest level</source>
        <translation>%1: höchste Stufe</translation>
    </message>
    <message>
        <source>%1: %2 of %3 jumps</source>
        <translation>%1: %2 von %3 Sprüngen</translation>
    </message>
    <message>
        <source>, %1 of %2 freefall</source>
        <translation>, %1 von %2 Freifall</translation>
    </message>
    <message>
        <source>%1 · next %2</source>
        <translation>%1 · nächste %2</translation>
    </message>
    <message>
        <source>Current: %1 of %2 days since the last jump</source>
        <translation>In Übung: %1 von %2 Tagen seit dem letzten Sprung</translation>
    </message>
    <message>
        <source>Recurrency jump due by %1</source>
        <translation>Übungssprung fällig bis %1</translation>
    </message>
    <message>
        <source>Currency lapsed since %1: a recurrency jump is needed</source>
        <translation>Übung abgelaufen seit %1: ein Übungssprung ist nötig</translation>
    </message>
    <message>
        <source>No jump logged yet</source>
        <translation>Noch kein Sprung eingetragen</translation>
    </message>
    <message>
        <source>%1: %2/%3 jumps, %4/%5 freefall</source>
        <translation>%1: %2/%3 Sprünge, %4/%5 Freifall</translation>
    </message>
    <message>
        <source>%1: %2/%3 jumps</source>
        <translation>%1: %2/%3 Sprünge</translation>
    </message>
    <message>
        <source>Current: %1 of %2 days</source>
        <translation>In Übung: %1 von %2 Tagen</translation>
    </message>
    <message>
        <source>Currency lapsed since %1</source>
        <translation>Übung abgelaufen seit %1</translation>
    </message>
</context>
<context>
    <name>CLogbookCommands</name>
    <message>
        <source>Save changes to %1?</source>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>View...</source>
        <translation>Ansehen...</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Show picture...</source>
        <translation>Bild anzeigen...</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Add track...</source>
        <translation>Track hinzufügen...</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 wird geöffnet...</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>%1 wird gespeichert...</translation>
    </message>
    <message>
        <source>Keep your version under a new name, load the version on disk (your changes are lost), or overwrite it with yours?</source>
        <translation>Die eigene Fassung unter einem neuen Namen speichern, die Fassung auf dem Datenträger laden (die eigenen Änderungen gehen verloren) oder sie mit der eigenen überschreiben?</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Load theirs</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Logbook</source>
        <translation>Sprungbuch</translation>
    </message>
    <message>
        <source>Do you want to delete these %1 jumps?</source>
        <translation>Möchten Sie diese %1 Sprünge löschen?</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>Sprünge</translation>
    </message>
    <message>
        <source>The jumps could not be written to %1.</source>
        <translation>Die Sprünge konnten nicht nach %1 geschrieben werden.</translation>
    </message>
    <message>
        <source>Export selection...</source>
        <translation>Auswahl exportieren...</translation>
    </message>
    <message>
        <source>Do you want to remove the signature of %1 from jump %2? The jump can then be changed, and it needs to be signed again.</source>
        <translation>Möchten Sie die Unterschrift von %1 von Sprung %2 entfernen? Der Sprung kann danach geändert werden und muss erneut unterschrieben werden.</translation>
    </message>
    <message>
        <source>Remove signature...</source>
        <translation>Unterschrift entfernen...</translation>
    </message>
    <message>
        <source>Reading the tracks...</source>
        <translation>Die Tracks werden gelesen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Importing the tracks...</source>
        <translation>Die Tracks werden importiert...</translation>
    </message>
</context>
<context>
    <name>CLogbookPageRenderer</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Sprungplatz</translation>
    </message>
    <message>
        <source>Aircraft</source>
        <translation>Flugzeug</translation>
    </message>
    <message>
        <source>Equipment</source>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Exit (%1)</source>
        <translation>Absprunghöhe (%1)</translation>
    </message>
    <message>
        <source>Opening (%1)</source>
        <translation>Öffnungshöhe (%1)</translation>
    </message>
    <message>
        <source>Freefall</source>
        <translation>Freifall</translation>
    </message>
    <message>
        <source>Fall rate</source>
        <translation>Fallrate</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Sprungart</translation>
    </message>
    <message>
        <source>Landing</source>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Logbook</source>
        <translation>Sprungbuch</translation>
    </message>
    <message>
        <source>Member number: %1</source>
        <translation>Mitgliedsnummer: %1</translation>
    </message>
    <message>
        <source>Licences: %1</source>
        <translation>Lizenzen: %1</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation>Vertikal</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>Sprünge</translation>
    </message>
    <message>
        <source>Freefall time</source>
        <translation>Freifallzeit</translation>
    </message>
    <message>
        <source>Totals of this page</source>
        <translation>Summe dieser Seite</translation>
    </message>
    <message>
        <source>Brought forward</source>
        <translation>Übertrag</translation>
    </message>
    <message>
        <source>Carried forward</source>
        <translation>Zu übertragen</translation>
    </message>
    <message>
        <source>Jump %1, %2, %3</source>
        <translation>Sprung %1, %2, %3</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Absprung</translation>
    </message>
    <message>
        <source>Opening</source>
        <translation>Öffnung</translation>
    </message>
    <message>
        <source>Canopy time</source>
        <translation>Schirmfahrtzeit</translation>
    </message>
    <message>
        <source>Maximum speed</source>
        <translation>Höchstgeschwindigkeit</translation>
    </message>
    <message>
        <source>Average speed</source>
        <translation>Durchschnittsgeschwindigkeit</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>Barometric</source>
        <translation>Barometrisch</translation>
    </message>
</context>
<context>
    <name>CLogbookPdf</name>
    <message>
        <source>Logbook</source>
        <translation>Sprungbuch</translation>
    </message>
</context>
<context>
    <name>CLogbookView</name>
    <message>
        <source>Home</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Jumps to be signed</source>
        <translation>Zu unterschreibende Sprünge</translation>
    </message>
    <message>
        <source>All jumps</source>
        <translation>Alle Sprünge</translation>
    </message>
    <message>
        <source>New jump</source>
        <translation>Neuer Sprung</translation>
    </message>
    <message>
        <source>Open another logbook</source>
        <translation>Anderes Sprungbuch öffnen</translation>
    </message>
    <message>
        <source>New logbook</source>
        <translation>Neues Sprungbuch</translation>
    </message>
    <message>
        <source>Open logbook</source>
        <translation>Sprungbuch öffnen</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
</context>
<context>
    <name>CMainFrame</name>
    <message>
        <source>New...</source>
        <translation>Neu...</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>About Tervola Pocket...</source>
        <translation>Über Tervola Pocket...</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>New jump...</source>
        <translation>Neuer Sprung...</translation>
    </message>
    <message>
        <source>View...</source>
        <translation>Ansehen...</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Show picture...</source>
        <translation>Bild anzeigen...</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Jump</source>
        <translation>&amp;Sprung</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>User Profile...</source>
        <translation>Benutzerprofil...</translation>
    </message>
    <message>
        <source>Equipment...</source>
        <translation>Ausrüstung...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;Logbook</source>
        <translation>Sprung&amp;buch</translation>
    </message>
    <message>
        <source>About Tervola Pocket</source>
        <translation>Über Tervola Pocket</translation>
    </message>
    <message>
        <source>Tervola Pocket %1
The skydiver&apos;s logbook.
%2</source>
        <translation>Tervola Pocket %1
Das Sprungbuch für Fallschirmspringer.
%2</translation>
    </message>
    <message>
        <source>Import track...</source>
        <translation>Track importieren...</translation>
    </message>
    <message>
        <source>Add track...</source>
        <translation>Track hinzufügen...</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>Sprünge</translation>
    </message>
    <message>
        <source>Statistics...</source>
        <translation>Statistik...</translation>
    </message>
    <message>
        <source>Export selection...</source>
        <translation>Auswahl exportieren...</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Drucken...</translation>
    </message>
    <message>
        <source>Print preview...</source>
        <translation>Druckvorschau...</translation>
    </message>
    <message>
        <source>Export PDF...</source>
        <translation>PDF exportieren...</translation>
    </message>
    <message>
        <source>Remove signature...</source>
        <translation>Unterschrift entfernen...</translation>
    </message>
    <message>
        <source>Import CSV...</source>
        <translation>CSV importieren...</translation>
    </message>
    <message>
        <source>Import tracks from a folder...</source>
        <translation>Tracks aus einem Ordner importieren...</translation>
    </message>
</context>
<context>
    <name>CNumberPadDlg</name>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
</context>
<context>
    <name>CPrintPagesCommand</name>
    <message>
        <source>Writing the PDF file...</source>
        <translation>Die PDF-Datei wird geschrieben...</translation>
    </message>
    <message>
        <source>Logbook</source>
        <translation>Sprungbuch</translation>
    </message>
    <message>
        <source>The printer could not be started.</source>
        <translation>Der Drucker konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Drucken...</translation>
    </message>
    <message>
        <source>Preparing the preview...</source>
        <translation>Die Vorschau wird vorbereitet...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The printer stopped.</source>
        <translation>Der Drucker hat angehalten.</translation>
    </message>
    <message>
        <source>The pages could not be written: %1</source>
        <translation>Die Seiten konnten nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>CRecordingPlot</name>
    <message>
        <source>No recording</source>
        <translation>Keine Aufzeichnung</translation>
    </message>
    <message>
        <source>Altitude (%1)</source>
        <translation>Höhe (%1)</translation>
    </message>
    <message>
        <source>Vertical speed (%1)</source>
        <translation>Vertikalgeschwindigkeit (%1)</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Absprung</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnung</translation>
    </message>
    <message>
        <source>Ground track</source>
        <translation>Weg über Grund</translation>
    </message>
</context>
<context>
    <name>CSaveProgressBar</name>
    <message>
        <source>Saving %p%</source>
        <translation>Speichern %p%</translation>
    </message>
</context>
<context>
    <name>CSearchBar</name>
    <message>
        <source>drop zone</source>
        <translation>Sprungplatz</translation>
    </message>
    <message>
        <source>aircraft</source>
        <translation>Flugzeug</translation>
    </message>
    <message>
        <source>jump type</source>
        <translation>Sprungart</translation>
    </message>
    <message>
        <source>team</source>
        <translation>Team</translation>
    </message>
    <message>
        <source>who signed</source>
        <translation>wer unterschrieben hat (Zeuge)</translation>
    </message>
    <message>
        <source>rig by number in brackets, or by its text</source>
        <translation>Ausrüstung nach Nummer in Klammern oder nach ihrem Text</translation>
    </message>
    <message>
        <source>fall rate: Standard, Vertical, Custom, Manual, Import</source>
        <translation>Fallrate: Standard, Vertical, Custom, Manual, Import</translation>
    </message>
    <message>
        <source>jump numbers; ranges may be open: ..50, 400..</source>
        <translation>Sprungnummern; Bereiche dürfen offen sein: ..50, 400..</translation>
    </message>
    <message>
        <source>a day, month or year, or a range of them</source>
        <translation>ein Tag, Monat oder Jahr oder ein Bereich davon</translation>
    </message>
    <message>
        <source>a year or a range of years</source>
        <translation>ein Jahr oder ein Bereich von Jahren</translation>
    </message>
    <message>
        <source>exit height in the display units</source>
        <translation>Absprunghöhe in den Anzeigeeinheiten</translation>
    </message>
    <message>
        <source>opening height in the display units</source>
        <translation>Öffnungshöhe in den Anzeigeeinheiten</translation>
    </message>
    <message>
        <source>freefall seconds (or M:SS)</source>
        <translation>Freifall in Sekunden (oder M:SS)</translation>
    </message>
    <message>
        <source>signed or not, and the seal: yes, no, sealed, changed, unsealed</source>
        <translation>unterschrieben oder nicht, und das Siegel: yes, no, sealed, changed, unsealed</translation>
    </message>
    <message>
        <source>recording, note, picture, video, wind, malfunction</source>
        <translation>vorhanden: recording, note, picture, video, wind, malfunction</translation>
    </message>
    <message>
        <source>no such term</source>
        <translation>unbekannter Suchbegriff</translation>
    </message>
    <message>
        <source>nothing to look for</source>
        <translation>nichts zu suchen</translation>
    </message>
    <message>
        <source>not a whole number</source>
        <translation>keine ganze Zahl</translation>
    </message>
    <message>
        <source>number too large</source>
        <translation>Zahl zu groß</translation>
    </message>
    <message>
        <source>not a date (2024, 2024-05 or 2024-05-17)</source>
        <translation>kein Datum (2024, 2024-05 oder 2024-05-17)</translation>
    </message>
    <message>
        <source>no such month</source>
        <translation>diesen Monat gibt es nicht</translation>
    </message>
    <message>
        <source>no such day</source>
        <translation>diesen Tag gibt es nicht</translation>
    </message>
    <message>
        <source>not a year</source>
        <translation>kein Jahr</translation>
    </message>
    <message>
        <source>not a number of seconds or M:SS</source>
        <translation>keine Sekundenzahl und nicht M:SS</translation>
    </message>
    <message>
        <source>a range needs a start or an end</source>
        <translation>ein Bereich braucht einen Anfang oder ein Ende</translation>
    </message>
    <message>
        <source>the range ends before it starts</source>
        <translation>der Bereich endet vor seinem Anfang</translation>
    </message>
    <message>
        <source>yes or no</source>
        <translation>yes oder no</translation>
    </message>
    <message>
        <source>recording, note, picture, video, wind or malfunction</source>
        <translation>recording, note, picture, video, wind oder malfunction</translation>
    </message>
    <message>
        <source>Standard, Vertical, Custom, Manual or Import</source>
        <translation>Standard, Vertical, Custom, Manual oder Import</translation>
    </message>
    <message>
        <source>Search jumps</source>
        <translation>Sprünge suchen</translation>
    </message>
    <message>
        <source>Words, &quot;phrases&quot; and terms such as dz:Eloy n:100..200 -signed:yes (Ctrl+F)</source>
        <translation>Wörter, &quot;Wortfolgen&quot; und Suchbegriffe wie dz:Eloy n:100..200 -signed:yes (Strg+F)</translation>
    </message>
    <message>
        <source>Terms</source>
        <translation>Begriffe</translation>
    </message>
    <message>
        <source>Insert a search term</source>
        <translation>Einen Suchbegriff einfügen</translation>
    </message>
    <message>
        <source>%1 of %2 jumps</source>
        <translation>%1 von %2 Sprüngen</translation>
    </message>
    <message>
        <source>1 jump</source>
        <translation>1 Sprung</translation>
    </message>
    <message>
        <source>%1 jumps</source>
        <translation>%1 Sprünge</translation>
    </message>
</context>
<context>
    <name>CSettingsCommands</name>
    <message>
        <source>This changes what a signed jump shows. Its witness signed the values as they were, so the jump will show as changed after signing. Do you want to make the change?</source>
        <translation>Dies ändert, was ein unterschriebener Sprung zeigt. Sein Zeuge hat die bisherigen Werte unterschrieben, daher wird der Sprung als nach der Unterschrift geändert angezeigt. Möchten Sie die Änderung vornehmen?</translation>
    </message>
    <message>
        <source>This changes what %1 signed jumps show. Their witnesses signed the values as they were, so these jumps will show as changed after signing. Do you want to make the change?</source>
        <translation>Dies ändert, was %1 unterschriebene Sprünge zeigen. Ihre Zeugen haben die bisherigen Werte unterschrieben, daher werden diese Sprünge als nach der Unterschrift geändert angezeigt. Möchten Sie die Änderung vornehmen?</translation>
    </message>
</context>
<context>
    <name>CSignatureCell</name>
    <message>
        <source>Licence %1</source>
        <translation>Lizenz %1</translation>
    </message>
    <message>
        <source>changed after signing</source>
        <translation>nach der Unterschrift geändert</translation>
    </message>
</context>
<context>
    <name>CSummaryPane</name>
    <message>
        <source>Logbook</source>
        <translation>Sprungbuch</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Gezeigt</translation>
    </message>
</context>
<context>
    <name>CTimePadDlg</name>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
</context>
<context>
    <name>StringTable</name>
    <message>
        <source>An error occured while writing the tervola file.</source>
        <comment>4000</comment>
        <translation>Beim Schreiben der Tervola-Datei ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>The file could not be opened.</source>
        <comment>4001</comment>
        <translation>Die Datei konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The file could not be saved.</source>
        <comment>4002</comment>
        <translation>Die Datei konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Max. 4 licenses are allowed.</source>
        <comment>4003</comment>
        <translation>Höchstens 4 Lizenzen sind erlaubt.</translation>
    </message>
    <message>
        <source>Max. ratings are allowed.</source>
        <comment>4004</comment>
        <translation>Höchstens 4 Berechtigungen sind erlaubt.</translation>
    </message>
    <message>
        <source>Max. 10 awards are allowed.</source>
        <comment>4005</comment>
        <translation>Höchstens 4 Abzeichen sind erlaubt.</translation>
    </message>
    <message>
        <source>Please enter a valid value.</source>
        <comment>4006</comment>
        <translation>Bitte einen gültigen Wert eingeben.</translation>
    </message>
    <message>
        <source>Please enter a harness.</source>
        <comment>4007</comment>
        <translation>Bitte ein Gurtzeug eingeben.</translation>
    </message>
    <message>
        <source>Please enter a main canopy.</source>
        <comment>4008</comment>
        <translation>Bitte einen Hauptschirm eingeben.</translation>
    </message>
    <message>
        <source>Please enter a value between %1 and %2.</source>
        <comment>4009</comment>
        <translation>Bitte einen Wert zwischen %1 und %2 eingeben.</translation>
    </message>
    <message>
        <source>Please enter a value for the open height that is less than the exit height.</source>
        <comment>4010</comment>
        <translation>Bitte eine Öffnungshöhe eingeben, die unter der Absprunghöhe liegt.</translation>
    </message>
    <message>
        <source>Please enter a time.</source>
        <comment>4012</comment>
        <translation>Bitte eine Zeit eingeben.</translation>
    </message>
    <message>
        <source>Please select an eqipment from the list or enter your equipment without preceeding [n].</source>
        <comment>4013</comment>
        <translation>Bitte eine Ausrüstung aus der Liste wählen oder die Ausrüstung ohne vorangestelltes [n] eingeben.</translation>
    </message>
    <message>
        <source>The file is no valid tervola file.</source>
        <comment>4014</comment>
        <translation>Die Datei ist keine gültige Tervola-Datei.</translation>
    </message>
    <message>
        <source>The file version (%1) can not be processed. Please install an actual version of Tervola or contact support@tervola.example.org</source>
        <comment>4015</comment>
        <translation>Die Dateiversion (%1) kann nicht verarbeitet werden. Bitte eine aktuelle Version von Tervola installieren oder an support@tervola.example.org wenden.</translation>
    </message>
    <message>
        <source>Parser error: %1</source>
        <comment>4016</comment>
        <translation>Fehler beim Lesen der Datei: %1</translation>
    </message>
    <message>
        <source>Please enter a signer or delete the signature.</source>
        <comment>4017</comment>
        <translation>Bitte einen Zeugen eingeben oder die Unterschrift löschen.</translation>
    </message>
    <message>
        <source>Please sign the jump or delete the signer.</source>
        <comment>4018</comment>
        <translation>Bitte den Sprung unterschreiben oder den Zeugen löschen.</translation>
    </message>
    <message>
        <source>Please enter a different jump number. The jump number must be unique.</source>
        <comment>4019</comment>
        <translation>Bitte eine andere Sprungnummer eingeben. Jede Sprungnummer darf nur einmal vorkommen.</translation>
    </message>
    <message>
        <source>Your membership/license will expire %1.</source>
        <comment>5005</comment>
        <translation>Die Mitgliedschaft/Lizenz läuft am %1 ab.</translation>
    </message>
    <message>
        <source>Equipment %1 needs to be inspected %2.</source>
        <comment>5006</comment>
        <translation>Ausrüstung %1: Reservepacken fällig am %2.</translation>
    </message>
    <message>
        <source>Do you want to delete jump number %1?</source>
        <comment>5007</comment>
        <translation>Sprung Nummer %1 löschen?</translation>
    </message>
    <message>
        <source>Do you want to remove the equipment %1?</source>
        <comment>5008</comment>
        <translation>Ausrüstung %1 entfernen?</translation>
    </message>
    <message>
        <source>User Profile</source>
        <comment>6000</comment>
        <translation>Benutzerprofil</translation>
    </message>
    <message>
        <source>Membership</source>
        <comment>6001</comment>
        <translation>Mitgliedschaft</translation>
    </message>
    <message>
        <source>Licenses</source>
        <comment>6002</comment>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>Ratings</source>
        <comment>6003</comment>
        <translation>Berechtigungen</translation>
    </message>
    <message>
        <source>Awards</source>
        <comment>6004</comment>
        <translation>Abzeichen</translation>
    </message>
    <message>
        <source>Alarm</source>
        <comment>6008</comment>
        <translation>Erinnerung</translation>
    </message>
    <message>
        <source>Custom Fallrate</source>
        <comment>6009</comment>
        <translation>Eigene Fallrate</translation>
    </message>
    <message>
        <source>Number of Jumps</source>
        <comment>6010</comment>
        <translation>Anzahl Sprünge</translation>
    </message>
    <message>
        <source>Freefall Time</source>
        <comment>6011</comment>
        <translation>Freifallzeit</translation>
    </message>
    <message>
        <source>Freefall Dist.</source>
        <comment>6012</comment>
        <translation>Freifallstrecke</translation>
    </message>
    <message>
        <source>Canopy Dist.</source>
        <comment>6013</comment>
        <translation>Schirmfahrt</translation>
    </message>
    <message>
        <source>Last Jump</source>
        <comment>6014</comment>
        <translation>Letzter Sprung</translation>
    </message>
    <message>
        <source>Jump</source>
        <comment>6018</comment>
        <translation>Sprung</translation>
    </message>
    <message>
        <source>Details</source>
        <comment>6019</comment>
        <translation>Details</translation>
    </message>
    <message>
        <source>Fallrate</source>
        <comment>6021</comment>
        <translation>Fallrate</translation>
    </message>
    <message>
        <source>Standard</source>
        <comment>6022</comment>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Vertical</source>
        <comment>6023</comment>
        <translation>Vertikal</translation>
    </message>
    <message>
        <source>Custom</source>
        <comment>6024</comment>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Import</source>
        <comment>6025</comment>
        <translation>Import</translation>
    </message>
    <message>
        <source>Manual</source>
        <comment>6026</comment>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Info</source>
        <comment>6027</comment>
        <translation>Info</translation>
    </message>
    <message>
        <source>Note</source>
        <comment>6028</comment>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>Signature</source>
        <comment>6029</comment>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>The file was changed by another program after it was opened here. It was not overwritten.</source>
        <comment>4020</comment>
        <translation>Die Datei wurde nach dem Öffnen von einem anderen Programm geändert. Sie wurde nicht überschrieben.</translation>
    </message>
    <message>
        <source>This logbook is already open in another Tervola Pocket (%1). Changes saved in one may be refused or overwritten by the other.</source>
        <comment>4021</comment>
        <translation>Dieses Sprungbuch ist bereits in einem anderen Tervola Pocket geöffnet (%1). Was in einem gespeichert wird, kann vom anderen abgelehnt oder überschrieben werden.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <comment>4100</comment>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>the %1 value %2 is not a number.</source>
        <comment>4101</comment>
        <translation>der Wert %2 in der Spalte %1 ist keine Zahl.</translation>
    </message>
    <message>
        <source>the time %1 is not a UTC date and time.</source>
        <comment>4102</comment>
        <translation>die Zeit %1 ist kein UTC-Datum mit Uhrzeit.</translation>
    </message>
    <message>
        <source>the latitude %1 is outside -90 to 90 degrees.</source>
        <comment>4103</comment>
        <translation>die geografische Breite %1 liegt nicht zwischen -90 und 90 Grad.</translation>
    </message>
    <message>
        <source>the longitude %1 is outside -180 to 180 degrees.</source>
        <comment>4104</comment>
        <translation>die geografische Länge %1 liegt nicht zwischen -180 und 180 Grad.</translation>
    </message>
    <message>
        <source>the height %1 is outside -500 to 15000 m.</source>
        <comment>4105</comment>
        <translation>die Höhe %1 liegt nicht zwischen -500 und 15000 m.</translation>
    </message>
    <message>
        <source>the north speed %1 is outside -150 to 150 m/s.</source>
        <comment>4106</comment>
        <translation>die Geschwindigkeit nach Norden %1 liegt nicht zwischen -150 und 150 m/s.</translation>
    </message>
    <message>
        <source>the east speed %1 is outside -150 to 150 m/s.</source>
        <comment>4107</comment>
        <translation>die Geschwindigkeit nach Osten %1 liegt nicht zwischen -150 und 150 m/s.</translation>
    </message>
    <message>
        <source>the vertical speed %1 is outside -150 to 150 m/s.</source>
        <comment>4108</comment>
        <translation>die vertikale Geschwindigkeit %1 liegt nicht zwischen -150 und 150 m/s.</translation>
    </message>
    <message>
        <source>no column names: a FlySight track starts with a line naming its columns (time, lat, lon, hMSL, velN, velE and velD).</source>
        <comment>4109</comment>
        <translation>keine Spaltennamen: Ein FlySight-Track beginnt mit einer Zeile, die seine Spalten benennt (time, lat, lon, hMSL, velN, velE und velD).</translation>
    </message>
    <message>
        <source>the column &quot;%1&quot; is missing; a track needs time, lat, lon, hMSL, velN, velE and velD.</source>
        <comment>4110</comment>
        <translation>die Spalte &quot;%1&quot; fehlt; ein Track braucht time, lat, lon, hMSL, velN, velE und velD.</translation>
    </message>
    <message>
        <source>the row has %1 fields where the column names call for %2.</source>
        <comment>4111</comment>
        <translation>die Zeile hat %1 Felder, die Spaltennamen verlangen %2.</translation>
    </message>
    <message>
        <source>the time goes backwards, to %1.</source>
        <comment>4112</comment>
        <translation>die Zeit springt zurück auf %1.</translation>
    </message>
    <message>
        <source>the file ends without a single usable position fix.</source>
        <comment>4113</comment>
        <translation>die Datei endet ohne einen einzigen brauchbaren GPS-Fix.</translation>
    </message>
    <message>
        <source>a $GNSS row comes before the $COL,GNSS line naming its columns.</source>
        <comment>4114</comment>
        <translation>eine $GNSS-Zeile steht vor der $COL,GNSS-Zeile, die ihre Spalten benennt.</translation>
    </message>
    <message>
        <source>the line is not a FlySight 2 sentence (those start with &apos;$&apos;).</source>
        <comment>4115</comment>
        <translation>die Zeile ist kein FlySight-2-Satz (diese beginnen mit &apos;$&apos;).</translation>
    </message>
    <message>
        <source>the file has no $COL,GNSS line naming the columns of its fixes.</source>
        <comment>4116</comment>
        <translation>die Datei hat keine $COL,GNSS-Zeile, die die Spalten ihrer GPS-Fixes benennt.</translation>
    </message>
    <message>
        <source>the file holds binary data, not the comma-separated text of a FlySight.</source>
        <comment>4117</comment>
        <translation>die Datei enthält Binärdaten, nicht den kommagetrennten Text eines FlySight.</translation>
    </message>
    <message>
        <source>the file is empty.</source>
        <comment>4118</comment>
        <translation>die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <comment>4119</comment>
        <translation>Die Datei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file %1 is too large for a track.</source>
        <comment>4120</comment>
        <translation>Die Datei %1 ist zu groß für einen Track.</translation>
    </message>
    <message>
        <source>No freefall found in the track.</source>
        <comment>4121</comment>
        <translation>Im Track wurde kein Freifall gefunden.</translation>
    </message>
    <message>
        <source>The track ends in freefall, before the parachute opened.</source>
        <comment>4122</comment>
        <translation>Der Track endet im Freifall, bevor der Schirm geöffnet wurde.</translation>
    </message>
    <message>
        <source>The track has no barometer readings.</source>
        <comment>4123</comment>
        <translation>Der Track hat keine Barometerwerte.</translation>
    </message>
    <message>
        <source>The barometer readings do not cover the jump from exit to landing.</source>
        <comment>4124</comment>
        <translation>Die Barometerwerte decken den Sprung nicht vom Absprung bis zur Landung ab.</translation>
    </message>
    <message>
        <source>No jump was found in the track.</source>
        <comment>4125</comment>
        <translation>Im Track wurde kein Sprung gefunden.</translation>
    </message>
    <message>
        <source>The jump found does not belong to this track.</source>
        <comment>4126</comment>
        <translation>Der gefundene Sprung gehört nicht zu diesem Track.</translation>
    </message>
    <message>
        <source>The time of the exit lies outside the years a logbook holds.</source>
        <comment>4127</comment>
        <translation>Die Zeit des Absprungs liegt außerhalb der Jahre, die ein Sprungbuch aufnehmen kann.</translation>
    </message>
    <message>
        <source>Your membership/license expired on %1.</source>
        <comment>5009</comment>
        <translation>Die Mitgliedschaft/Lizenz ist am %1 abgelaufen.</translation>
    </message>
    <message>
        <source>No jump is numbered from %1 to %2.</source>
        <comment>4301</comment>
        <translation>Kein Sprung hat eine Nummer von %1 bis %2.</translation>
    </message>
    <message>
        <source>Sealed</source>
        <comment>6100</comment>
        <translation>Versiegelt</translation>
    </message>
    <message>
        <source>Changed after signing</source>
        <comment>6101</comment>
        <translation>Nach Unterschrift geändert</translation>
    </message>
    <message>
        <source>Signed, not sealed</source>
        <comment>6102</comment>
        <translation>Unterschrieben, ohne Siegel</translation>
    </message>
    <message>
        <source>%1 of the track&apos;s %2 data lines are damaged, more than one in a hundred; this is the first.</source>
        <comment>4128</comment>
        <translation>%1 der %2 Datenzeilen des Tracks sind beschädigt, mehr als eine von hundert; dies ist die erste.</translation>
    </message>
    <message>
        <source>Damaged lines skipped: %1 (line %2).</source>
        <comment>4129</comment>
        <translation>Übersprungene beschädigte Zeilen: %1 (Zeile %2).</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <comment>4200</comment>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file holds binary data, not a table of text.</source>
        <comment>4201</comment>
        <translation>Die Datei enthält Binärdaten, keine Tabelle aus Text.</translation>
    </message>
    <message>
        <source>The file is too large for a table of jumps.</source>
        <comment>4202</comment>
        <translation>Die Datei ist zu groß für eine Tabelle von Sprüngen.</translation>
    </message>
    <message>
        <source>a quote is not closed.</source>
        <comment>4203</comment>
        <translation>ein Anführungszeichen wird nicht geschlossen.</translation>
    </message>
    <message>
        <source>a cell is longer than 65536 characters.</source>
        <comment>4204</comment>
        <translation>eine Zelle ist länger als 65536 Zeichen.</translation>
    </message>
    <message>
        <source>the row has %1 cells where the header has %2.</source>
        <comment>4205</comment>
        <translation>die Zeile hat %1 Zellen, die Kopfzeile aber %2.</translation>
    </message>
    <message>
        <source>the jump number %1 is not a whole number above 0.</source>
        <comment>4206</comment>
        <translation>die Sprungnummer %1 ist keine ganze Zahl über 0.</translation>
    </message>
    <message>
        <source>the date %1 cannot be read.</source>
        <comment>4207</comment>
        <translation>das Datum %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>the time %1 cannot be read.</source>
        <comment>4208</comment>
        <translation>die Uhrzeit %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>the height %1 is not a number from 0 to 15000 m.</source>
        <comment>4209</comment>
        <translation>die Höhe %1 ist keine Zahl von 0 bis 15000 m.</translation>
    </message>
    <message>
        <source>the freefall time %1 is neither seconds nor m:ss.</source>
        <comment>4210</comment>
        <translation>die Freifallzeit %1 ist weder in Sekunden noch als m:ss angegeben.</translation>
    </message>
    <message>
        <source>the value %2 in the column &quot;%1&quot; is not a number.</source>
        <comment>4211</comment>
        <translation>der Wert %2 in der Spalte „%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>jump %1 is already in the logbook.</source>
        <comment>4212</comment>
        <translation>Sprung %1 ist schon im Sprungbuch.</translation>
    </message>
    <message>
        <source>jump %1 is already in the logbook and signed; it stays as it is.</source>
        <comment>4213</comment>
        <translation>Sprung %1 ist schon im Sprungbuch und unterschrieben; er bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>jump %1 comes twice in the file.</source>
        <comment>4214</comment>
        <translation>Sprung %1 kommt zweimal in der Datei vor.</translation>
    </message>
    <message>
        <source>No column of the file holds the jumps&apos; dates.</source>
        <comment>4215</comment>
        <translation>Keine Spalte der Datei enthält das Datum der Sprünge.</translation>
    </message>
    <message>
        <source>The file&apos;s dates can be read day-first or month-first; please choose which.</source>
        <comment>4216</comment>
        <translation>Die Datumsangaben der Datei lassen sich mit dem Tag oder mit dem Monat zuerst lesen; bitte wählen Sie eine Form.</translation>
    </message>
    <message>
        <source>The file&apos;s dates are day-first in some rows and month-first in others; please choose which.</source>
        <comment>4217</comment>
        <translation>Die Datumsangaben der Datei stehen in manchen Zeilen mit dem Tag, in anderen mit dem Monat zuerst; bitte wählen Sie eine Form.</translation>
    </message>
    <message>
        <source>the date is missing.</source>
        <comment>4218</comment>
        <translation>das Datum fehlt.</translation>
    </message>
    <message>
        <source>the fall rate %1 is none of Standard, Vertical, Custom, Manual and Import.</source>
        <comment>4219</comment>
        <translation>die Fallrate %1 ist keine von Standard, Vertical, Custom, Manual und Import.</translation>
    </message>
    <message>
        <source>the jump is already in the logbook as jump %1.</source>
        <comment>4230</comment>
        <translation>der Sprung ist schon als Sprung %1 im Sprungbuch.</translation>
    </message>
    <message>
        <source>the jump is the same as the one of %1.</source>
        <comment>4231</comment>
        <translation>der Sprung ist derselbe wie der von %1.</translation>
    </message>
    <message>
        <source>Please tick the tracks to import.</source>
        <comment>4232</comment>
        <translation>Bitte haken Sie die Tracks an, die importiert werden sollen.</translation>
    </message>
    <message>
        <source>Jump %1 can take only one track.</source>
        <comment>4233</comment>
        <translation>Sprung %1 kann nur einen Track aufnehmen.</translation>
    </message>
    <message>
        <source>Date</source>
        <comment>6200</comment>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <comment>6201</comment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Place</source>
        <comment>6202</comment>
        <translation>Sprungplatz</translation>
    </message>
    <message>
        <source>Aircraft</source>
        <comment>6203</comment>
        <translation>Flugzeug</translation>
    </message>
    <message>
        <source>Type</source>
        <comment>6204</comment>
        <translation>Sprungart</translation>
    </message>
    <message>
        <source>Exit [%1]</source>
        <comment>6205</comment>
        <translation>Absprung [%1]</translation>
    </message>
    <message>
        <source>Opening [%1]</source>
        <comment>6206</comment>
        <translation>Öffnung [%1]</translation>
    </message>
    <message>
        <source>Freefall</source>
        <comment>6207</comment>
        <translation>Freifall</translation>
    </message>
    <message>
        <source>Wind direction</source>
        <comment>6208</comment>
        <translation>Windrichtung</translation>
    </message>
    <message>
        <source>Wind speed</source>
        <comment>6209</comment>
        <translation>Windgeschwindigkeit</translation>
    </message>
    <message>
        <source>Rig</source>
        <comment>6210</comment>
        <translation>Ausrüstung</translation>
    </message>
    <message>
        <source>Landing</source>
        <comment>6211</comment>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Team</source>
        <comment>6212</comment>
        <translation>Team</translation>
    </message>
    <message>
        <source>Size</source>
        <comment>6213</comment>
        <translation>Gruppengröße</translation>
    </message>
    <message>
        <source>Points</source>
        <comment>6214</comment>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Malfunction</source>
        <comment>6215</comment>
        <translation>Störung</translation>
    </message>
    <message>
        <source>Signed by</source>
        <comment>6216</comment>
        <translation>Unterschrieben von</translation>
    </message>
    <message>
        <source>Note</source>
        <comment>6217</comment>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Recording</source>
        <comment>6218</comment>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Seal</source>
        <comment>6219</comment>
        <translation>Siegel</translation>
    </message>
</context>
</TS>
