<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AQAboutPanel</name>
    <message>
        <source>About Aquelon</source>
        <translation>Über Aquelon</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Edits the daily light program of the Aquelon aquarium lamp controller and transfers it over USB.</source>
        <translation>Bearbeitet das tägliche Lichtprogramm des Aquelon-Controllers einer Aquarienlampe und überträgt es per USB.</translation>
    </message>
    <message>
        <source>Libraries and their licences</source>
        <translation>Bibliotheken und ihre Lizenzen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>LGPL v2.1 or later</source>
        <translation>LGPL v2.1 oder neuer</translation>
    </message>
</context>
<context>
    <name>AQCurvePoint</name>
    <message>
        <source>Drag up or down, with Ctrl for a tenth of the way.
Double-click or Enter to type the values.</source>
        <translation>Nach oben oder unten ziehen, mit Strg nur um ein Zehntel des Weges.
Doppelklick oder Eingabetaste, um die Werte einzutippen.</translation>
    </message>
    <message>
        <source>Point %1 of %2, %3, intensity %4 %, colour temperature %5 %</source>
        <translation>Punkt %1 von %2, %3, Intensität %4 %, Farbtemperatur %5 %</translation>
    </message>
</context>
<context>
    <name>AQCurvePointPopoverView</name>
    <message>
        <source>Warm</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Warm</translation>
    </message>
    <message>
        <source>Cold</source>
        <translation>Kalt</translation>
    </message>
</context>
<context>
    <name>AQCurveTimeTag</name>
    <message>
        <source>Drag to move the point in time, with Ctrl by single minutes</source>
        <translation>Ziehen verschiebt den Punkt in der Zeit, mit Strg minutenweise</translation>
    </message>
</context>
<context>
    <name>AQCurveView</name>
    <message>
        <source>The demo plays the day here. Stop it to edit the curve.</source>
        <translation>Hier läuft der Tag als Demo ab. Zum Bearbeiten der Kurve die Demo anhalten.</translation>
    </message>
    <message>
        <source>Light program curve</source>
        <translation>Kurve des Lichtprogramms</translation>
    </message>
    <message>
        <source>Left and Right select a time point, Up and Down change its intensity, Alt with Left and Right its time, Enter opens fields for its values, Insert adds a point, Delete removes it.</source>
        <translation>Links und Rechts wählen einen Punkt, Auf und Ab ändern seine Intensität, Alt mit Links und Rechts seine Zeit, die Eingabetaste öffnet Felder für seine Werte, Einfg fügt einen Punkt hinzu, Entf löscht ihn.</translation>
    </message>
    <message>
        <source>Double-click to add a point</source>
        <translation>Doppelklick fügt einen Punkt hinzu</translation>
    </message>
</context>
<context>
    <name>AQGroupHeader</name>
    <message>
        <source>Help on %1</source>
        <translation>Hilfe zu: %1</translation>
    </message>
</context>
<context>
    <name>AQHelpButton</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>AQHelpPopover</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>AQPointFields</name>
    <message>
        <source>Point %1 of %2</source>
        <translation>Punkt %1 von %2</translation>
    </message>
    <message>
        <source>Edit point %1 of %2, %3</source>
        <translation>Punkt %1 von %2 bearbeiten, %3</translation>
    </message>
    <message>
        <source>Point %1, %2, %3</source>
        <translation>Punkt %1, %2, %3</translation>
    </message>
    <message>
        <source>Another point already has the time %1</source>
        <translation>Die Zeit %1 hat schon ein anderer Punkt</translation>
    </message>
    <message>
        <source>Enter keeps, Escape restores</source>
        <translation>Eingabe übernimmt, Esc verwirft</translation>
    </message>
</context>
<context>
    <name>AQPointList</name>
    <message>
        <source>Light program points</source>
        <translation>Punkte des Lichtprogramms</translation>
    </message>
    <message>
        <source>Point %1 of %2, %3</source>
        <translation>Punkt %1 von %2, %3</translation>
    </message>
</context>
<context>
    <name>AQPointRow</name>
    <message>
        <source>Point %1, %2, %3</source>
        <translation>Punkt %1, %2, %3</translation>
    </message>
</context>
<context>
    <name>AQSlider</name>
    <message>
        <source>Type a value, use the arrow keys (Shift: 10 %), or drag. Escape during a drag gives the old value back.</source>
        <translation>Wert eintippen, Pfeiltasten benutzen (mit Umschalt: 10 %) oder ziehen. Esc während des Ziehens stellt den alten Wert wieder her.</translation>
    </message>
</context>
<context>
    <name>AQSliderColorTemp</name>
    <message>
        <source>Warm</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Warm</translation>
    </message>
    <message>
        <source>Cold</source>
        <translation>Kalt</translation>
    </message>
    <message>
        <source>warm %1%, cold %2%</source>
        <translation>warm %1%, kalt %2%</translation>
    </message>
</context>
<context>
    <name>AQTimeDurationEdit</name>
    <message>
        <source>%1 min %2 s</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>Type minutes and seconds up to 255 min 59 s, for example 1:30.</source>
        <translation>Minuten und Sekunden bis 255 min 59 s eintippen, zum Beispiel 1:30.</translation>
    </message>
</context>
<context>
    <name>AQTimeEdit</name>
    <message>
        <source>Another point already has the time %1.</source>
        <translation>Die Zeit %1 hat schon ein anderer Punkt.</translation>
    </message>
    <message>
        <source>Type a time from 00:00 to 23:59, for example 07:30.</source>
        <translation>Eine Zeit von 00:00 bis 23:59 eintippen, zum Beispiel 07:30.</translation>
    </message>
</context>
<context>
    <name>Acclimation</name>
    <message>
        <source>day %1 of %2: %3 %</source>
        <translation>Tag %1 von %2: %3 %</translation>
    </message>
</context>
<context>
    <name>AcclimationCommands</name>
    <message>
        <source>Acclimation is over: end it</source>
        <translation>Eingewöhnung ist vorbei: beenden</translation>
    </message>
    <message>
        <source>Acclimation %1</source>
        <translation>Eingewöhnung %1</translation>
    </message>
    <message>
        <source>The program runs at 100 % from now on anyway</source>
        <translation>Das Programm läuft von nun an ohnehin mit 100 %</translation>
    </message>
    <message>
        <source>Change or end the acclimation</source>
        <translation>Eingewöhnung ändern oder beenden</translation>
    </message>
    <message>
        <source>Begin with less light, and more of it every day</source>
        <translation>Mit weniger Licht beginnen und jeden Tag mehr geben</translation>
    </message>
    <message>
        <source>The program has no points</source>
        <translation>Das Programm hat keine Punkte</translation>
    </message>
</context>
<context>
    <name>AcclimationPanel</name>
    <message>
        <source>&amp;End Acclimation</source>
        <translation>Eingewöhnung b&amp;eenden</translation>
    </message>
    <message>
        <source>Acclimate</source>
        <translation>Eingewöhnung</translation>
    </message>
    <message>
        <source>The intensity on the first day; on the last one it is 100 %</source>
        <translation>Die Intensität am ersten Tag; am letzten sind es 100 %</translation>
    </message>
    <message>
        <source>&amp;Start at</source>
        <translation>&amp;Beginnen mit</translation>
    </message>
    <message>
        <source>&amp;Days</source>
        <translation>&amp;Tage</translation>
    </message>
    <message>
        <source>&amp;First day</source>
        <translation>E&amp;rster Tag</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>OK</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>over: 100 %</source>
        <translation>vorbei: 100 %</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Could not save file!</source>
        <translation>Die Datei konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>&amp;Stop Demo</source>
        <translation>&amp;Demo anhalten</translation>
    </message>
    <message>
        <source>&amp;Run Demo</source>
        <translation>&amp;Demo starten</translation>
    </message>
    <message>
        <source>Save changed before quitting?</source>
        <translation>Änderungen vor dem Beenden speichern?</translation>
    </message>
    <message>
        <source>Aquelon controller connection status

Indicates if the Aquelon controller communication is active.
If &quot;NOT CONNECTED&quot; is displayed, select a controller and connect to it by choosing &quot;Menu | Device | Open Device...&quot;.</source>
        <translation>Verbindungsstatus des Aquelon-Controllers

Zeigt, ob eine Verbindung zum Aquelon-Controller besteht.
Bei „NICHT VERBUNDEN“ über „Menü | Gerät | Gerät öffnen...“ einen Controller auswählen und verbinden.</translation>
    </message>
    <message>
        <source>Sets time, intensity and color point of the task lighting.

Task lighting can be enabled by pressing the button on the Aquelon controller. By pressing the button again, the contoller will fall back to its previous state and program.

Task lighting can be used for tank maintenance or quickly checking the inhabitants at night</source>
        <translation>Stellt Dauer, Intensität und Farbtemperatur des Arbeitslichts ein.

Das Arbeitslicht wird mit der Taste am Aquelon-Controller eingeschaltet. Ein weiterer Druck auf die Taste führt zum vorherigen Zustand und Programm zurück.

Das Arbeitslicht hilft bei der Beckenpflege und beim kurzen Blick auf die Bewohner in der Nacht.</translation>
    </message>
</context>
<context>
    <name>ClipboardCommands</name>
    <message>
        <source>and 1 more line</source>
        <translation>und 1 weitere Zeile</translation>
    </message>
    <message numerus="yes">
        <source>and %n more lines</source>
        <translation>
            <numerusform>und %n weitere Zeile</numerusform>
            <numerusform>und %n weitere Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>Copy the selected point as text</source>
        <translation>Den ausgewählten Punkt als Text kopieren</translation>
    </message>
    <message>
        <source>Copy the whole program as text</source>
        <translation>Das ganze Programm als Text kopieren</translation>
    </message>
    <message>
        <source>Copy the selected point as text, and delete it</source>
        <translation>Den ausgewählten Punkt als Text kopieren und löschen</translation>
    </message>
    <message>
        <source>Copy the whole program as text, and delete it</source>
        <translation>Das ganze Programm als Text kopieren und löschen</translation>
    </message>
    <message>
        <source>Add the time points in the clipboard</source>
        <translation>Die Zeitpunkte aus der Zwischenablage hinzufügen</translation>
    </message>
    <message>
        <source>The program has no points</source>
        <translation>Das Programm hat keine Punkte</translation>
    </message>
    <message>
        <source>Cut Program</source>
        <translation>Programm ausschneiden</translation>
    </message>
    <message>
        <source>Cut %1</source>
        <translation>Punkt %1 ausschneiden</translation>
    </message>
    <message>
        <source>There is no text with time points in the clipboard.</source>
        <translation>In der Zwischenablage ist kein Text mit Zeitpunkten.</translation>
    </message>
    <message>
        <source>Copy points here, or lines with a time, the intensity and the colour temperature from a spreadsheet.</source>
        <translation>Kopieren Sie hier Punkte oder in einer Tabellenkalkulation Zeilen mit Zeit, Intensität und Farbtemperatur.</translation>
    </message>
    <message>
        <source>The text in the clipboard cannot be pasted.</source>
        <translation>Der Text in der Zwischenablage kann nicht eingefügt werden.</translation>
    </message>
    <message>
        <source>Not all pasted points fit into the program.</source>
        <translation>Nicht alle eingefügten Punkte passen in das Programm.</translation>
    </message>
    <message>
        <source>The program has %1 and the controller holds %2: %3 of the %4 pasted points fit.</source>
        <translation>Das Programm hat %1 und der Controller fasst %2: %3 der %4 eingefügten Punkte passen hinein.</translation>
    </message>
    <message>
        <source>The program has %1 and can have %2: %3 of the %4 pasted points fit.</source>
        <translation>Das Programm hat %1 und kann %2 haben: %3 der %4 eingefügten Punkte passen hinein.</translation>
    </message>
    <message>
        <source>1 point</source>
        <translation>1 Punkt</translation>
    </message>
    <message numerus="yes">
        <source>%n points</source>
        <translation>
            <numerusform>%n Punkt</numerusform>
            <numerusform>%n Punkte</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing was pasted.</source>
        <translation>Nichts wurde eingefügt.</translation>
    </message>
    <message>
        <source>Or they can take the place of the whole program.</source>
        <translation>Sie können aber auch das ganze Programm ersetzen.</translation>
    </message>
    <message>
        <source>&amp;Replace the Program</source>
        <translation>Programm &amp;ersetzen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
</context>
<context>
    <name>ComparePanel</name>
    <message>
        <source>&amp;Take the Lamp&apos;s</source>
        <translation>Das der Lampe über&amp;nehmen</translation>
    </message>
    <message>
        <source>&amp;Send Mine</source>
        <translation>Meines &amp;senden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>The lamp holds this program.</source>
        <translation>Die Lampe enthält dieses Programm.</translation>
    </message>
    <message>
        <source>The program here and the lamp&apos;s differ:</source>
        <translation>Das Programm hier und das der Lampe unterscheiden sich:</translation>
    </message>
    <message>
        <source>Nothing differs.</source>
        <translation>Kein Unterschied.</translation>
    </message>
    <message>
        <source>Nothing differs</source>
        <translation>Kein Unterschied</translation>
    </message>
    <message>
        <source>Replace the program here by the lamp&apos;s; can be undone</source>
        <translation>Das Programm hier durch das der Lampe ersetzen; kann rückgängig gemacht werden</translation>
    </message>
    <message>
        <source>The lamp&apos;s program is incomplete or damaged:</source>
        <translation>Das Programm der Lampe ist unvollständig oder beschädigt:</translation>
    </message>
    <message>
        <source>The lamp&apos;s program is incomplete or damaged</source>
        <translation>Das Programm der Lampe ist unvollständig oder beschädigt</translation>
    </message>
    <message>
        <source>No controller is connected; close this window to look for it</source>
        <translation>Kein Controller ist verbunden; schließen Sie dieses Fenster, um ihn zu suchen</translation>
    </message>
</context>
<context>
    <name>ConnectionWorkflow</name>
    <message>
        <source>%1 controllers: choose one with Device | Open Device...</source>
        <translation>%1 Controller: einen mit Gerät | Gerät öffnen... auswählen</translation>
    </message>
    <message>
        <source>port error: %1</source>
        <translation>Anschlussfehler: %1</translation>
    </message>
    <message>
        <source>Device Error!</source>
        <translation>Gerätefehler!</translation>
    </message>
    <message>
        <source>Error: %1.</source>
        <translation>Fehler: %1.</translation>
    </message>
</context>
<context>
    <name>ContentsChange</name>
    <message>
        <source>Move %1 to %2</source>
        <translation>Punkt %1 auf %2 verschieben</translation>
    </message>
    <message>
        <source>Colour Temperature at %1</source>
        <translation>Farbtemperatur um %1</translation>
    </message>
    <message>
        <source>Intensity at %1</source>
        <translation>Intensität um %1</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>Punkt %1 bearbeiten</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>Punkt %1 hinzufügen</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Punkt %1 löschen</translation>
    </message>
    <message>
        <source>Task Light</source>
        <translation>Arbeitslicht</translation>
    </message>
    <message>
        <source>Switch to Program</source>
        <translation>Auf Programm umschalten</translation>
    </message>
    <message>
        <source>Switch to Analog Input</source>
        <translation>Auf Analogeingang umschalten</translation>
    </message>
    <message>
        <source>Edit Program</source>
        <translation>Programm bearbeiten</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Acclimate</source>
        <translation>Eingewöhnung</translation>
    </message>
    <message>
        <source>Change Acclimation</source>
        <translation>Eingewöhnung ändern</translation>
    </message>
    <message>
        <source>End Acclimation</source>
        <translation>Eingewöhnung beenden</translation>
    </message>
</context>
<context>
    <name>ControlState</name>
    <message>
        <source>No controller is connected</source>
        <translation>Kein Controller ist verbunden</translation>
    </message>
    <message>
        <source>The controller is being read already</source>
        <translation>Der Controller wird gerade gelesen</translation>
    </message>
    <message>
        <source>Replace the light program by the one in the controller</source>
        <translation>Das Lichtprogramm durch das im Controller ersetzen</translation>
    </message>
    <message>
        <source>Store the light program in the controller</source>
        <translation>Das Lichtprogramm im Controller speichern</translation>
    </message>
    <message>
        <source>The demo has the lamp; stop it first</source>
        <translation>Die Demo hat die Lampe; erst die Demo anhalten</translation>
    </message>
    <message>
        <source>Show on the lamp what is being edited</source>
        <translation>Auf der Lampe zeigen, was gerade bearbeitet wird</translation>
    </message>
    <message>
        <source>Give the lamp back to its own program</source>
        <translation>Die Lampe ihrem eigenen Programm zurückgeben</translation>
    </message>
    <message>
        <source>Play the whole day on the lamp</source>
        <translation>Den ganzen Tag auf der Lampe abspielen</translation>
    </message>
    <message>
        <source>Set the controller&apos;s clock</source>
        <translation>Die Uhr des Controllers stellen</translation>
    </message>
    <message>
        <source>Live mode has the lamp; switch it off first</source>
        <translation>Die Live-Vorschau hat die Lampe; erst ausschalten</translation>
    </message>
    <message>
        <source>Tell how the light program differs from the one in the controller</source>
        <translation>Zeigen, worin sich das Lichtprogramm von dem im Controller unterscheidet</translation>
    </message>
    <message>
        <source>Save what the controller holds, without loading it</source>
        <translation>Speichern, was der Controller enthält, ohne es zu laden</translation>
    </message>
    <message>
        <source>The lamp follows its analog 1-10 V input; switch to programmed mode to edit the light program</source>
        <translation>Die Lampe folgt ihrem Analogeingang 1-10 V; zum Bearbeiten des Lichtprogramms auf „programmiert“ umschalten</translation>
    </message>
    <message>
        <source>Double-click to add a point, drag points up or down and their time tag sideways.
Arrow keys select and dim, with Alt they move in time.</source>
        <translation>Doppelklick fügt einen Punkt hinzu; Punkte nach oben oder unten ziehen, ihre Zeitmarke seitwärts.
Pfeiltasten wählen aus und dimmen, mit Alt verschieben sie in der Zeit.</translation>
    </message>
    <message>
        <source>Click to go to a time of the day, drag to go through it.
Space pauses and goes on, Left and Right go to the point before and after.</source>
        <translation>Klicken springt zu einer Uhrzeit, Ziehen geht durch den Tag.
Leertaste hält an und spielt weiter, Links und Rechts gehen zum Punkt davor und danach.</translation>
    </message>
</context>
<context>
    <name>CurveMenu</name>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Add Point Here</source>
        <translation>&amp;Punkt hier hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Add Point</source>
        <translation>&amp;Punkt hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
</context>
<context>
    <name>DayPage</name>
    <message>
        <source>controller with firmware %1</source>
        <translation>Controller mit Firmware %1</translation>
    </message>
</context>
<context>
    <name>DayShapeFields</name>
    <message>
        <source>Reef</source>
        <translation>Riff</translation>
    </message>
    <message>
        <source>Planted</source>
        <translation>Pflanzen</translation>
    </message>
    <message>
        <source>Low Light</source>
        <translation>Schwachlicht</translation>
    </message>
    <message>
        <source>Siesta</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Siesta</translation>
    </message>
    <message>
        <source>Long Summer Day</source>
        <translation>Langer Sommertag</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Begin &amp;with</source>
        <translation>&amp;Vorlage</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Beginn</translation>
    </message>
    <message>
        <source>&amp;End</source>
        <translation>&amp;Ende</translation>
    </message>
    <message>
        <source>Sun&amp;rise</source>
        <translation>Sonnen&amp;aufgang</translation>
    </message>
    <message>
        <source> min</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation> min</translation>
    </message>
    <message>
        <source>S&amp;unset</source>
        <translation>Sonnen&amp;untergang</translation>
    </message>
    <message>
        <source>So&amp;ft ramps</source>
        <translation>&amp;Weiche Übergänge</translation>
    </message>
    <message>
        <source>Begin and end slowly, which takes more points</source>
        <translation>Langsam beginnen und enden, was mehr Punkte braucht</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>Noon &amp;level</source>
        <translation>&amp;Intensität am Mittag</translation>
    </message>
    <message>
        <source> %</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation> %</translation>
    </message>
    <message>
        <source>D&amp;awn</source>
        <translation>&amp;Morgens</translation>
    </message>
    <message>
        <source>Colour temperature at dawn</source>
        <translation>Farbtemperatur am Morgen</translation>
    </message>
    <message>
        <source>&amp;Noon</source>
        <translation>Mi&amp;ttags</translation>
    </message>
    <message>
        <source>Colour temperature at noon</source>
        <translation>Farbtemperatur am Mittag</translation>
    </message>
    <message>
        <source>&amp;Dusk</source>
        <translation>Aben&amp;ds</translation>
    </message>
    <message>
        <source>Colour temperature at dusk</source>
        <translation>Farbtemperatur am Abend</translation>
    </message>
    <message>
        <source>&amp;Midday break</source>
        <translation>Mittags&amp;pause</translation>
    </message>
    <message>
        <source>S&amp;tart</source>
        <translation>Be&amp;ginn</translation>
    </message>
    <message>
        <source>Len&amp;gth</source>
        <translation>&amp;Länge</translation>
    </message>
    <message>
        <source>Le&amp;vel</source>
        <translation>I&amp;ntensität</translation>
    </message>
    <message>
        <source>Moonl&amp;ight</source>
        <translation>Mondli&amp;cht</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Colour temperature of the moonlight</source>
        <translation>Farbtemperatur des Mondlichts</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>The day must not end at its start.</source>
        <translation>Der Tag darf nicht enden, wenn er beginnt.</translation>
    </message>
    <message>
        <source>Sunrise and sunset overlap: the day lasts only %1.</source>
        <translation>Sonnenaufgang und Sonnenuntergang überschneiden sich: Der Tag dauert nur %1.</translation>
    </message>
    <message>
        <source>The break is longer than the day, which lasts %1.</source>
        <translation>Die Pause ist länger als der Tag, der %1 dauert.</translation>
    </message>
    <message>
        <source>The break must lie between the end of the sunrise at %1 and the begin of the sunset at %2.</source>
        <translation>Die Pause muss zwischen dem Ende des Sonnenaufgangs um %1 und dem Beginn des Sonnenuntergangs um %2 liegen.</translation>
    </message>
    <message>
        <source>This day needs more than the %1 points that there is room for.</source>
        <translation>Dieser Tag braucht mehr als die %1 Punkte, für die Platz ist.</translation>
    </message>
    <message>
        <source>Own day</source>
        <translation>Eigener Tag</translation>
    </message>
</context>
<context>
    <name>DemoMode</name>
    <message>
        <source>Run Demo</source>
        <translation>Demo starten</translation>
    </message>
    <message>
        <source>Stop Demo</source>
        <translation>Demo anhalten</translation>
    </message>
    <message>
        <source>The demo goes on</source>
        <translation>Die Demo läuft weiter</translation>
    </message>
    <message>
        <source>Paused at %1</source>
        <translation>Angehalten um %1</translation>
    </message>
</context>
<context>
    <name>DemoPlayer</name>
    <message>
        <source>DEMO %1</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>DEMO %1</translation>
    </message>
    <message>
        <source>DEMO %1 PAUSED: press Space to go on</source>
        <translation>DEMO %1 ANGEHALTEN: weiter mit der Leertaste</translation>
    </message>
</context>
<context>
    <name>Departure</name>
    <message>
        <source>SENDING, THEN QUITTING</source>
        <translation>SENDEN, DANN BEENDEN</translation>
    </message>
</context>
<context>
    <name>DeviceBackup</name>
    <message>
        <source>Could not load settings from device!</source>
        <translation>Die Einstellungen konnten nicht vom Gerät geladen werden!</translation>
    </message>
    <message>
        <source>Lamp.sq</source>
        <translation>Lampe.sq</translation>
    </message>
    <message>
        <source>Not all levels can be given back exactly!</source>
        <translation>Nicht alle Werte lassen sich genau zurückgeben!</translation>
    </message>
    <message>
        <source>%1 was saved. Sent to the device again, it stores levels that are near to those of now: %2.</source>
        <translation>%1 wurde gespeichert. Wieder an das Gerät gesendet, ergibt es Ausgangswerte, die den jetzigen nahekommen: %2.</translation>
    </message>
    <message>
        <source>Lamp at %1 %.sq</source>
        <translation>Lampe mit %1 %.sq</translation>
    </message>
    <message>
        <source>The open file was not replaced!</source>
        <translation>Die geöffnete Datei wurde nicht ersetzt!</translation>
    </message>
    <message>
        <source>%1 is the file of the program in the window. Choose another name for what the lamp holds.</source>
        <translation>%1 ist die Datei des Programms im Fenster. Wählen Sie einen anderen Namen für das, was die Lampe enthält.</translation>
    </message>
</context>
<context>
    <name>DeviceComparison</name>
    <message>
        <source>Could not compare with the device!</source>
        <translation>Der Vergleich mit dem Gerät ist nicht gelungen!</translation>
    </message>
    <message>
        <source>Of the %1 channels of this controller the first %2 are read and compared.</source>
        <translation>Von den %1 Kanälen dieses Controllers werden die ersten %2 gelesen und verglichen.</translation>
    </message>
    <message>
        <source>At present the lamp follows its analog input.</source>
        <translation>Derzeit folgt die Lampe ihrem Analogeingang.</translation>
    </message>
    <message>
        <source>Take the Lamp&apos;s Program</source>
        <translation>Programm der Lampe übernehmen</translation>
    </message>
    <message>
        <source>It cannot be taken or shown as a curve. Send Mine stores the whole program.</source>
        <translation>Es kann nicht übernommen oder als Kurve gezeigt werden. „Meines senden“ speichert das ganze Programm.</translation>
    </message>
    <message>
        <source>Compared in today&apos;s light: acclimation %1.</source>
        <translation>Verglichen im Licht von heute: Eingewöhnung %1.</translation>
    </message>
    <message>
        <source>Taking the lamp&apos;s ends the acclimation.</source>
        <translation>Das Programm der Lampe zu übernehmen beendet die Eingewöhnung.</translation>
    </message>
</context>
<context>
    <name>DeviceTimePanel</name>
    <message>
        <source>C&amp;omputer&apos;s time</source>
        <translation>&amp;Computerzeit</translation>
    </message>
    <message>
        <source>C&amp;ustom time</source>
        <translation>&amp;Eigene Zeit</translation>
    </message>
    <message>
        <source>&amp;Daylight saving</source>
        <translation>&amp;Sommerzeit</translation>
    </message>
    <message>
        <source>Custom time</source>
        <translation>Eigene Zeit</translation>
    </message>
    <message>
        <source>OK</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Controller&apos;s clock</source>
        <translation>Uhr des Controllers</translation>
    </message>
    <message>
        <source>Computer&apos;s clock</source>
        <translation>Uhr des Computers</translation>
    </message>
    <message>
        <source>&amp;Time zone</source>
        <translation>&amp;Zeitzone</translation>
    </message>
    <message>
        <source>invalid date from the controller</source>
        <translation>ungültiges Datum vom Controller</translation>
    </message>
    <message>
        <source>The controller has not told the time of its clock yet.</source>
        <translation>Der Controller hat seine Uhrzeit noch nicht mitgeteilt.</translation>
    </message>
    <message>
        <source>The controller is not connected; its clock cannot be set.</source>
        <translation>Der Controller ist nicht verbunden; seine Uhr kann nicht gestellt werden.</translation>
    </message>
    <message>
        <source>There is no such date as the controller&apos;s: %1. &quot;OK&quot; sets its clock.</source>
        <translation>Das Datum des Controllers gibt es nicht: %1. „OK“ stellt seine Uhr.</translation>
    </message>
    <message>
        <source>Set the controller&apos;s clock</source>
        <translation>Die Uhr des Controllers stellen</translation>
    </message>
    <message>
        <source>The controller is not connected</source>
        <translation>Der Controller ist nicht verbunden</translation>
    </message>
</context>
<context>
    <name>DiagnosticsPanel</name>
    <message>
        <source>Diagnostics</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <source>This is what is copied, for those who help you. It holds no more than is shown here.</source>
        <translation>Das wird kopiert, für alle, die Ihnen helfen. Es enthält nicht mehr, als hier zu sehen ist.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>DialogPrompts</name>
    <message>
        <source>Aquelon light programs (*.sq)</source>
        <translation>Aquelon-Lichtprogramme (*.sq)</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Open Light Program</source>
        <translation>Lichtprogramm öffnen</translation>
    </message>
    <message>
        <source>Save Light Program</source>
        <translation>Lichtprogramm speichern</translation>
    </message>
    <message>
        <source>Export Light Program</source>
        <translation>Lichtprogramm exportieren</translation>
    </message>
</context>
<context>
    <name>DocumentCommands</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>There are unsaved changes. Do you want to save them first?</source>
        <translation>Es gibt ungespeicherte Änderungen. Möchten Sie sie erst speichern?</translation>
    </message>
    <message>
        <source>Save changes before loading defaults?</source>
        <translation>Änderungen vor dem Laden der Vorgaben speichern?</translation>
    </message>
    <message>
        <source>Save changes before opening new file?</source>
        <translation>Änderungen vor dem Öffnen einer anderen Datei speichern?</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message>
        <source>Could not open file!</source>
        <translation>Die Datei konnte nicht geöffnet werden!</translation>
    </message>
    <message>
        <source>%1 could not be opened. Maybe the file is corrupt or contains invalid data.</source>
        <translation>%1 konnte nicht geöffnet werden. Vielleicht ist die Datei beschädigt oder enthält ungültige Daten.</translation>
    </message>
    <message>
        <source>%1 exists already.</source>
        <translation>%1 gibt es schon.</translation>
    </message>
    <message>
        <source>The file will be overwritten!</source>
        <translation>Die Datei wird überschrieben!</translation>
    </message>
    <message>
        <source>Are you sure you want to continue?</source>
        <translation>Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message>
        <source>Could not save file!</source>
        <translation>Die Datei konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>There was an error while saving to %1</source>
        <translation>Fehler beim Speichern nach %1</translation>
    </message>
    <message>
        <source>%1 cannot be read any more (%2).</source>
        <translation>%1 ist nicht mehr lesbar (%2).</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was opened.</source>
        <translation>%1 wurde seit dem Öffnen von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>The program in the window is not the one that was opened from %1.</source>
        <translation>Das Programm im Fenster ist nicht das, das aus %1 geöffnet wurde.</translation>
    </message>
    <message>
        <source>Save changes before making a new day?</source>
        <translation>Änderungen speichern, bevor ein neuer Tag entsteht?</translation>
    </message>
</context>
<context>
    <name>ExportCommands</name>
    <message>
        <source>PNG picture</source>
        <translation>PNG-Bild</translation>
    </message>
    <message>
        <source>SVG picture</source>
        <translation>SVG-Bild</translation>
    </message>
    <message>
        <source>PDF document</source>
        <translation>PDF-Dokument</translation>
    </message>
    <message>
        <source>CSV table</source>
        <translation>CSV-Tabelle</translation>
    </message>
    <message>
        <source>The file will be overwritten!</source>
        <translation>Die Datei wird überschrieben!</translation>
    </message>
    <message>
        <source>%1 exists already. Are you sure you want to continue?</source>
        <translation>%1 gibt es schon. Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message>
        <source>Could not export!</source>
        <translation>Exportieren fehlgeschlagen!</translation>
    </message>
    <message>
        <source>%1 was not written: %2.</source>
        <translation>%1 wurde nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>the picture would be too large</source>
        <translation>das Bild würde zu groß</translation>
    </message>
    <message>
        <source>the picture could not be drawn</source>
        <translation>das Bild konnte nicht gezeichnet werden</translation>
    </message>
    <message>
        <source>a part of the program is missing. %1</source>
        <translation>ein Teil von Aquelon fehlt. %1</translation>
    </message>
    <message>
        <source>the pages could not be drawn</source>
        <translation>die Seiten konnten nicht gezeichnet werden</translation>
    </message>
    <message>
        <source>Could not print!</source>
        <translation>Drucken fehlgeschlagen!</translation>
    </message>
    <message>
        <source>A part of the program is missing. %1</source>
        <translation>Ein Teil von Aquelon fehlt. %1</translation>
    </message>
    <message>
        <source>There is no printer!</source>
        <translation>Es gibt keinen Drucker!</translation>
    </message>
    <message>
        <source>This computer knows no printer. &quot;File | Export...&quot; makes a PDF document, which can be printed elsewhere.</source>
        <translation>Dieser Computer kennt keinen Drucker. „Datei | Exportieren...“ macht ein PDF-Dokument, das sich anderswo drucken lässt.</translation>
    </message>
    <message>
        <source>The printer or the file did not take the pages.</source>
        <translation>Der Drucker oder die Datei hat die Seiten nicht angenommen.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
</context>
<context>
    <name>File</name>
    <message>
        <source>Not a regular file</source>
        <translation>Keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>A file cannot be locked there</source>
        <translation>Dort kann keine Datei gesperrt werden</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Datei zu groß</translation>
    </message>
</context>
<context>
    <name>LampContents</name>
    <message>
        <source>the lamp runs this program</source>
        <translation>in der Lampe läuft dieses Programm</translation>
    </message>
    <message>
        <source>the lamp runs another program</source>
        <translation>in der Lampe läuft ein anderes Programm</translation>
    </message>
    <message>
        <source>the lamp may hold a part of this program: Send again</source>
        <translation>die Lampe hat eventuell nur einen Teil dieses Programms: erneut senden</translation>
    </message>
    <message>
        <source>the lamp may hold a part of this program</source>
        <translation>die Lampe hat eventuell nur einen Teil dieses Programms</translation>
    </message>
    <message>
        <source>the lamp follows its analog input</source>
        <translation>die Lampe folgt ihrem Analogeingang</translation>
    </message>
    <message>
        <source>The lamp may hold a part of what was sent before.</source>
        <translation>Die Lampe hat eventuell nur einen Teil des zuvor Gesendeten.</translation>
    </message>
    <message>
        <source>What the lamp holds has not been read yet.</source>
        <translation>Was die Lampe enthält, wurde noch nicht gelesen.</translation>
    </message>
    <message>
        <source>read, but not understood</source>
        <translation>gelesen, aber nicht verstanden</translation>
    </message>
    <message>
        <source>sent, but the controller does not tell what it stored</source>
        <translation>gesendet, aber der Controller sagt nicht, was er gespeichert hat</translation>
    </message>
    <message>
        <source>not read yet</source>
        <translation>noch nicht gelesen</translation>
    </message>
    <message>
        <source>A send to %1 broke off.</source>
        <translation>Das Senden an %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>A send to %1 broke off; the program has been changed here since.</source>
        <translation>Das Senden an %1 wurde abgebrochen; das Programm wurde hier seitdem geändert.</translation>
    </message>
    <message>
        <source>What the lamp holds is known again after a whole send, load or comparison.</source>
        <translation>Was die Lampe enthält, ist nach vollständigem Senden, Laden oder Vergleichen wieder bekannt.</translation>
    </message>
    <message>
        <source>What the lamp holds is not known.</source>
        <translation>Was die Lampe enthält, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The lamp runs yesterday&apos;s %1 %; send it today&apos;s %2 %</source>
        <translation>Die Lampe läuft mit den %1 % von gestern; senden Sie die %2 % von heute</translation>
    </message>
    <message>
        <source>The lamp runs the %1 % of day %2; send it today&apos;s %3 %</source>
        <translation>Die Lampe läuft mit den %1 % von Tag %2; senden Sie die %3 % von heute</translation>
    </message>
    <message>
        <source>Acclimation %1 is sent</source>
        <translation>Eingewöhnung %1 wird gesendet</translation>
    </message>
    <message>
        <source>If it is in programmed mode: the mode has not been read.</source>
        <translation>Falls sie im programmierten Modus ist: Der Modus wurde noch nicht gelesen.</translation>
    </message>
</context>
<context>
    <name>LampPreview</name>
    <message>
        <source>%1, waiting for the controller</source>
        <translation>%1, wartet auf den Controller</translation>
    </message>
</context>
<context>
    <name>LiveMode</name>
    <message>
        <source>LIVE PREVIEW</source>
        <translation>LIVE-VORSCHAU</translation>
    </message>
    <message>
        <source>LIVE PREVIEW: select a point or the task light</source>
        <translation>LIVE-VORSCHAU: einen Punkt oder das Arbeitslicht wählen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Aquelon - Untitled</source>
        <translation>Aquelon - Unbenannt</translation>
    </message>
    <message>
        <source>How to get access to the controller</source>
        <translation>So bekommen Sie Zugriff auf den Controller</translation>
    </message>
    <message>
        <source>NOT CONNECTED</source>
        <translation>NICHT VERBUNDEN</translation>
    </message>
    <message>
        <source>Help on the connection status</source>
        <translation>Hilfe zum Verbindungsstatus</translation>
    </message>
    <message>
        <source>What the connection status means</source>
        <translation>Was der Verbindungsstatus bedeutet</translation>
    </message>
    <message>
        <source>Light program</source>
        <translation>Lichtprogramm</translation>
    </message>
    <message>
        <source>+ Add</source>
        <translation>+ Hinzufügen</translation>
    </message>
    <message>
        <source>Add point</source>
        <translation>Punkt hinzufügen</translation>
    </message>
    <message>
        <source>− Delete</source>
        <translation>− Löschen</translation>
    </message>
    <message>
        <source>Delete point</source>
        <translation>Punkt löschen</translation>
    </message>
    <message>
        <source>Task light</source>
        <translation>Arbeitslicht</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Task light duration</source>
        <translation>Dauer des Arbeitslichts</translation>
    </message>
    <message>
        <source>Colour temperature</source>
        <translation>Farbtemperatur</translation>
    </message>
    <message>
        <source>Task light colour temperature</source>
        <translation>Farbtemperatur des Arbeitslichts</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Task light intensity</source>
        <translation>Intensität des Arbeitslichts</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>analog 1-10 V</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>analog 1-10 V</translation>
    </message>
    <message>
        <source>Programmed mode</source>
        <translation>Programmierter Modus</translation>
    </message>
    <message>
        <source>programmed</source>
        <translation>programmiert</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Live</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Live</translation>
    </message>
    <message>
        <source>Live mode</source>
        <translation>Live-Vorschau</translation>
    </message>
    <message>
        <source>Run Demo</source>
        <translation>Demo starten</translation>
    </message>
    <message>
        <source>Stop Demo</source>
        <translation>Demo anhalten</translation>
    </message>
    <message>
        <source>Load from device</source>
        <translation>Vom Gerät laden</translation>
    </message>
    <message>
        <source>Send to device</source>
        <translation>An Gerät senden</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt verwendet</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Add Point</source>
        <translation>&amp;Punkt hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Delete Point</source>
        <translation>Punkt &amp;löschen</translation>
    </message>
    <message>
        <source>S&amp;hift Day...</source>
        <translation>&amp;Tag verschieben...</translation>
    </message>
    <message>
        <source>Scale &amp;Intensity...</source>
        <translation>&amp;Intensität skalieren...</translation>
    </message>
    <message>
        <source>&amp;Open Device...</source>
        <translation>&amp;Gerät öffnen...</translation>
    </message>
    <message>
        <source>&amp;Load from Device</source>
        <translation>Vom Gerät &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Send to Device</source>
        <translation>An Gerät &amp;senden</translation>
    </message>
    <message>
        <source>&amp;Compare with Device</source>
        <translation>Mit Gerät &amp;vergleichen</translation>
    </message>
    <message>
        <source>Save Device&apos;s &amp;Program As...</source>
        <translation>&amp;Programm des Geräts speichern unter...</translation>
    </message>
    <message>
        <source>L&amp;ive</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>L&amp;ive</translation>
    </message>
    <message>
        <source>&amp;Run Demo</source>
        <translation>&amp;Demo starten</translation>
    </message>
    <message>
        <source>Set Device &amp;Time...</source>
        <translation>Geräte&amp;uhr stellen...</translation>
    </message>
    <message>
        <source>&amp;Connection Status</source>
        <translation>&amp;Verbindungsstatus</translation>
    </message>
    <message>
        <source>&amp;Task Light</source>
        <translation>&amp;Arbeitslicht</translation>
    </message>
    <message>
        <source>Copy &amp;Diagnostics</source>
        <translation>&amp;Diagnose kopieren</translation>
    </message>
    <message>
        <source>&amp;Protocol Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>&amp;About Aquelon</source>
        <translation>Ü&amp;ber Aquelon</translation>
    </message>
    <message>
        <source>CONNECTED</source>
        <translation>VERBUNDEN</translation>
    </message>
    <message>
        <source>Sending 00 of 00</source>
        <translation>Senden 00 von 00</translation>
    </message>
    <message>
        <source>&amp;User Guide</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>New &amp;Day...</source>
        <translation>Neuer &amp;Tag...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Acc&amp;limate...</source>
        <translation>Ein&amp;gewöhnung...</translation>
    </message>
</context>
<context>
    <name>NewDayPanel</name>
    <message>
        <source>New Day</source>
        <translation>Neuer Tag</translation>
    </message>
    <message>
        <source>The day as the fields describe it</source>
        <translation>Der Tag, wie ihn die Felder beschreiben</translation>
    </message>
    <message>
        <source>OK</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PaperLoader</name>
    <message>
        <source>There is no %1</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>%1 is not ours</source>
        <translation>%1 ist keine von Aquelon</translation>
    </message>
</context>
<context>
    <name>PointColumn</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Colour temperature</source>
        <translation>Farbtemperatur</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
</context>
<context>
    <name>PointTable</name>
    <message>
        <source>Not while the lamp follows its analog 1-10 V input</source>
        <translation>Nicht, solange die Lampe ihrem Analogeingang 1-10 V folgt</translation>
    </message>
    <message>
        <source>The controller holds no more than %1 points</source>
        <translation>Der Controller fasst nicht mehr als %1 Punkte</translation>
    </message>
    <message>
        <source>A program holds no more than %1 points</source>
        <translation>Ein Programm fasst nicht mehr als %1 Punkte</translation>
    </message>
    <message>
        <source>Add a point after the selected one</source>
        <translation>Nach dem ausgewählten einen Punkt hinzufügen</translation>
    </message>
    <message>
        <source>Delete the selected point</source>
        <translation>Den ausgewählten Punkt löschen</translation>
    </message>
    <message>
        <source>Select a point first</source>
        <translation>Erst einen Punkt auswählen</translation>
    </message>
</context>
<context>
    <name>PortHelpPanel</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy: %1</source>
        <translation>Kopieren: %1</translation>
    </message>
</context>
<context>
    <name>ProgramChangeCommands</name>
    <message>
        <source>Move all points later or earlier</source>
        <translation>Alle Punkte später oder früher legen</translation>
    </message>
    <message>
        <source>Make all points brighter or darker</source>
        <translation>Alle Punkte heller oder dunkler machen</translation>
    </message>
    <message>
        <source>The program has no points</source>
        <translation>Das Programm hat keine Punkte</translation>
    </message>
</context>
<context>
    <name>ProgramChangePanel</name>
    <message>
        <source>OK</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ProgramComparison</name>
    <message>
        <source>%1 s</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 only here</source>
        <translation>%1 nur hier</translation>
    </message>
    <message>
        <source>%1 only in the lamp</source>
        <translation>%1 nur in der Lampe</translation>
    </message>
    <message>
        <source>Task light</source>
        <translation>Arbeitslicht</translation>
    </message>
    <message>
        <source>%1: %2 here, %3 in the lamp</source>
        <translation>%1: hier %2, in der Lampe %3</translation>
    </message>
    <message>
        <source>%1: colour temperature %2 here, %3 in the lamp</source>
        <translation>%1: Farbtemperatur hier %2, in der Lampe %3</translation>
    </message>
    <message>
        <source>%1: levels %2 here, %3 in the lamp</source>
        <translation>%1: Ausgangswerte hier %2, in der Lampe %3</translation>
    </message>
    <message>
        <source>Channel %1: %2 entries here, %3 in the lamp</source>
        <translation>Kanal %1: hier %2 Einträge, in der Lampe %3</translation>
    </message>
    <message>
        <source>Channel %1, entry %2: %3 here, %4 in the lamp</source>
        <translation>Kanal %1, Eintrag %2: hier %3, in der Lampe %4</translation>
    </message>
    <message>
        <source>Channel %1, entry %2: level %3 here, %4 in the lamp</source>
        <translation>Kanal %1, Eintrag %2: Ausgangswert hier %3, in der Lampe %4</translation>
    </message>
    <message>
        <source>The task light changes</source>
        <translation>Das Arbeitslicht ändert sich</translation>
    </message>
    <message>
        <source>The stored levels change</source>
        <translation>Die gespeicherten Ausgangswerte ändern sich</translation>
    </message>
    <message>
        <source>Nothing changes</source>
        <translation>Nichts ändert sich</translation>
    </message>
    <message>
        <source>1 point changes</source>
        <translation>1 Punkt ändert sich</translation>
    </message>
    <message>
        <source>1 point and the task light change</source>
        <translation>1 Punkt und das Arbeitslicht ändern sich</translation>
    </message>
    <message numerus="yes">
        <source>%n points change</source>
        <translation>
            <numerusform>%n Punkt ändert sich</numerusform>
            <numerusform>%n Punkte ändern sich</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n points and the task light change</source>
        <translation>
            <numerusform>%n Punkt und das Arbeitslicht ändern sich</numerusform>
            <numerusform>%n Punkte und das Arbeitslicht ändern sich</numerusform>
        </translation>
    </message>
    <message>
        <source>The incomplete or damaged program in the lamp is replaced</source>
        <translation>Das unvollständige oder beschädigte Programm in der Lampe wird ersetzt</translation>
    </message>
</context>
<context>
    <name>ProgramStatistics</name>
    <message>
        <source>Light %1 h %2 min, %3 h of full light</source>
        <translation>Licht %1 h %2 min, entspricht %3 h vollem Licht</translation>
    </message>
</context>
<context>
    <name>ProgramText</name>
    <message>
        <source>A time, an intensity and a colour temperature are needed</source>
        <translation>Zeit, Intensität und Farbtemperatur werden gebraucht</translation>
    </message>
    <message>
        <source>%1 stands in line %2 already</source>
        <translation>%1 steht schon in Zeile %2</translation>
    </message>
    <message>
        <source>The text is too long to be a light program</source>
        <translation>Der Text ist zu lang für ein Lichtprogramm</translation>
    </message>
    <message>
        <source>There are more lines than a day has minutes</source>
        <translation>Es gibt mehr Zeilen, als der Tag Minuten hat</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>There is no line with a time point</source>
        <translation>Keine Zeile enthält einen Zeitpunkt</translation>
    </message>
</context>
<context>
    <name>ProtocolLogWindow</name>
    <message>
        <source>Protocol Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Protocol log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>Save Protocol Log</source>
        <translation>Protokoll speichern</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>No Recent Files</source>
        <translation>Keine zuletzt verwendeten Dateien</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Liste leeren</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>HH:mm, d MMMM yyyy</source>
        <translation>d.M.yyyy, HH:mm</translation>
    </message>
    <message>
        <source>Aquelon was ended with unsaved work.</source>
        <translation>Aquelon wurde mit ungespeicherten Änderungen beendet.</translation>
    </message>
    <message>
        <source>Aquelon ended unexpectedly.</source>
        <translation>Aquelon wurde unerwartet beendet.</translation>
    </message>
    <message>
        <source>Recover the program as of %1?</source>
        <translation>Das Programm vom Stand %1 wiederherstellen?</translation>
    </message>
    <message>
        <source>It has not been saved in a file.</source>
        <translation>Es ist in keiner Datei gespeichert.</translation>
    </message>
    <message>
        <source>It holds changes that are not in the file %1.</source>
        <translation>Es enthält Änderungen, die nicht in der Datei %1 sind.</translation>
    </message>
    <message>
        <source>Could not write a recovery copy!</source>
        <translation>Es konnte keine Sicherungskopie geschrieben werden!</translation>
    </message>
    <message>
        <source>Until they are saved, changes would be lost if Aquelon or the computer ended unexpectedly. No copy can be kept in %1: %2.</source>
        <translation>Bis sie gespeichert sind, gingen Änderungen verloren, falls Aquelon oder der Computer unerwartet endet. In %1 kann keine Kopie liegen: %2.</translation>
    </message>
    <message>
        <source>Could not open a second window!</source>
        <translation>Ein zweites Fenster konnte nicht geöffnet werden!</translation>
    </message>
    <message>
        <source>Aquelon offers this unsaved work again at its next start.</source>
        <translation>Aquelon bietet diese nicht gespeicherte Arbeit beim nächsten Start wieder an.</translation>
    </message>
</context>
<context>
    <name>ScaleIntensityPanel</name>
    <message>
        <source>Scale Intensity</source>
        <translation>Intensität skalieren</translation>
    </message>
    <message>
        <source>No point gets brighter than 100 %</source>
        <translation>Kein Punkt wird heller als 100 %</translation>
    </message>
    <message>
        <source>&amp;Scale to</source>
        <translation>&amp;Skalieren auf</translation>
    </message>
    <message>
        <source>Scale Intensity to %1 %</source>
        <translation>Intensität auf %1 % skalieren</translation>
    </message>
</context>
<context>
    <name>SelectDevicePanel</name>
    <message>
        <source>No Aquelon controller is plugged in.</source>
        <translation>Kein Aquelon-Controller ist angesteckt.</translation>
    </message>
    <message>
        <source>Controller</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>Controller</translation>
    </message>
    <message>
        <source>&amp;Controller to connect to:</source>
        <translation>&amp;Controller, der verbunden werden soll:</translation>
    </message>
    <message>
        <source>OK</source>
        <translatorcomment>The same in German.</translatorcomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Aquelon Controller %1</source>
        <translation>Aquelon-Controller %1</translation>
    </message>
</context>
<context>
    <name>ShiftDayPanel</name>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&amp;Earlier</source>
        <translation>&amp;Früher</translation>
    </message>
    <message>
        <source>Shift Day</source>
        <translation>Tag verschieben</translation>
    </message>
    <message>
        <source>Hours and minutes</source>
        <translation>Stunden und Minuten</translation>
    </message>
    <message>
        <source>&amp;Shift by</source>
        <translation>&amp;Verschieben um</translation>
    </message>
    <message>
        <source>Shift Day by %1%2</source>
        <translation>Tag um %1%2 verschieben</translation>
    </message>
</context>
<context>
    <name>TimeField</name>
    <message>
        <source>%1 cannot be used.</source>
        <translation>%1 ist nicht möglich.</translation>
    </message>
</context>
<context>
    <name>TransferResult</name>
    <message>
        <source>Wrong number of channels: got %1, expected 2 or 4.</source>
        <translation>Falsche Anzahl von Kanälen: %1 statt 2 oder 4.</translation>
    </message>
    <message>
        <source>Too many time points in sequence: %1. This controller supports a maximmum of %2 points only.</source>
        <translation>Zu viele Zeitpunkte: %1. Dieser Controller fasst höchstens %2 Punkte.</translation>
    </message>
    <message>
        <source>success</source>
        <translation>gelungen</translation>
    </message>
    <message>
        <source>Controller not connected.</source>
        <translation>Der Controller ist nicht verbunden.</translation>
    </message>
    <message>
        <source>Got invalid or unknown data format from device.</source>
        <translation>Das Gerät hat Daten in einem ungültigen oder unbekannten Format geschickt.</translation>
    </message>
</context>
<context>
    <name>TransferWorkflow</name>
    <message>
        <source>Save changes before loading settings</source>
        <translation>Änderungen vor dem Laden der Einstellungen speichern</translation>
    </message>
    <message>
        <source>Could not load settings from device!</source>
        <translation>Die Einstellungen konnten nicht vom Gerät geladen werden!</translation>
    </message>
    <message>
        <source>The device settings will be overwritten!</source>
        <translation>Die Einstellungen des Geräts werden überschrieben!</translation>
    </message>
    <message>
        <source>Are you sure you want to continue?</source>
        <translation>Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message>
        <source>Could not send settings to device!</source>
        <translation>Die Einstellungen konnten nicht an das Gerät gesendet werden!</translation>
    </message>
    <message>
        <source>Upload was successfull!</source>
        <translation>Übertragung gelungen!</translation>
    </message>
    <message>
        <source>Your settings have been applied to the device.</source>
        <translation>Ihre Einstellungen sind jetzt im Gerät.</translation>
    </message>
    <message>
        <source>The device stored something else!</source>
        <translation>Das Gerät hat etwas anderes gespeichert!</translation>
    </message>
    <message>
        <source>Loading ends the acclimation!</source>
        <translation>Laden beendet die Eingewöhnung!</translation>
    </message>
    <message>
        <source>The device holds the light of one day. Are you sure you want to continue?</source>
        <translation>Das Gerät enthält das Licht eines Tages. Möchten Sie wirklich fortfahren?</translation>
    </message>
</context>
<context>
    <name>Transfers</name>
    <message>
        <source>Loading %1 of %2</source>
        <translation>Laden %1 von %2</translation>
    </message>
    <message>
        <source>Load from Device</source>
        <translation>Vom Gerät laden</translation>
    </message>
    <message>
        <source>Reading %1 of %2</source>
        <translation>Lesen %1 von %2</translation>
    </message>
    <message>
        <source>Sending %1 of %2</source>
        <translation>Senden %1 von %2</translation>
    </message>
</context>
<context>
    <name>TypedValue</name>
    <message>
        <source>The time is missing</source>
        <translation>Die Zeit fehlt</translation>
    </message>
    <message>
        <source>%1 is no time of day</source>
        <translation>%1 ist keine Uhrzeit</translation>
    </message>
    <message>
        <source>%1 leads out of the day, 00:00 to 23:59</source>
        <translation>%1 führt aus dem Tag hinaus, 00:00 bis 23:59</translation>
    </message>
    <message>
        <source>The percentage is missing</source>
        <translation>Die Prozentzahl fehlt</translation>
    </message>
    <message>
        <source>%1 is no percentage from 0 to 100</source>
        <translation>%1 ist keine Prozentzahl von 0 bis 100</translation>
    </message>
</context>
<context>
    <name>UndoCommands</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>UserGuide</name>
    <message>
        <source>There is no user guide here.</source>
        <translation>Hier gibt es kein Handbuch.</translation>
    </message>
    <message>
        <source>It comes with the program&apos;s package; the sources have it in docs.</source>
        <translation>Es kommt mit dem Paket des Programms; bei den Quellen liegt es in docs.</translation>
    </message>
    <message>
        <source>No program could be started to show the user guide.</source>
        <translation>Es konnte kein Programm gestartet werden, um das Handbuch zu zeigen.</translation>
    </message>
    <message>
        <source>It can be opened by hand: %1</source>
        <translation>Es lässt sich von Hand öffnen: %1</translation>
    </message>
</context>
<context>
    <name>WallTime</name>
    <message>
        <source>The controller&apos;s clock shows the same time as the computer&apos;s.</source>
        <translation>Die Uhr des Controllers zeigt dieselbe Zeit wie die des Computers.</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1 Tag</translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n Tag</numerusform>
            <numerusform>%n Tage</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <translation>
            <numerusform>%n Stunde</numerusform>
            <numerusform>%n Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>1 minute</source>
        <translation>1 Minute</translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n Minute</numerusform>
            <numerusform>%n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>1 second</source>
        <translation>1 Sekunde</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n Sekunde</numerusform>
            <numerusform>%n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>The controller&apos;s clock is %1 behind the computer&apos;s.</source>
        <translation>Die Uhr des Controllers geht gegenüber der des Computers %1 nach.</translation>
    </message>
    <message>
        <source>The controller&apos;s clock is %1 ahead of the computer&apos;s.</source>
        <translation>Die Uhr des Controllers geht gegenüber der des Computers %1 vor.</translation>
    </message>
</context>
<context>
    <name>YMessageError</name>
    <message>
        <source>another program holds the controller</source>
        <translation>ein anderes Programm hält den Controller besetzt</translation>
    </message>
    <message>
        <source>%1 is in use by another program</source>
        <translation>%1 wird von einem anderen Programm benutzt</translation>
    </message>
    <message>
        <source>another program holds the controller (process %1)</source>
        <translation>ein anderes Programm hält den Controller besetzt (Prozess %1)</translation>
    </message>
    <message>
        <source>%1 is in use by another program: unnamed, process %2</source>
        <translation>%1 wird von einem anderen Programm benutzt: ohne Namen, Prozess %2</translation>
    </message>
    <message>
        <source>another program holds the controller (%1)</source>
        <translation>ein anderes Programm hält den Controller besetzt (%1)</translation>
    </message>
    <message>
        <source>%1 is in use by another program: %2, process %3</source>
        <translation>%1 wird von einem anderen Programm benutzt: %2, Prozess %3</translation>
    </message>
    <message>
        <source>The user &quot;%1&quot; may not read and write %2, which belongs to the group &quot;%3&quot;</source>
        <translation>Der Benutzer „%1“ darf %2 nicht lesen und schreiben; es gehört der Gruppe „%3“</translation>
    </message>
    <message>
        <source>Join the group, then log out and in again:</source>
        <translation>Der Gruppe beitreten, dann ab- und wieder anmelden:</translation>
    </message>
    <message>
        <source>Add a rule for the controller, then plug it in again:</source>
        <translation>Eine Regel für den Controller anlegen, dann ihn neu anstecken:</translation>
    </message>
    <message>
        <source>port %1 is no Aquelon device</source>
        <translation>der Anschluss %1 ist kein Aquelon-Gerät</translation>
    </message>
    <message>
        <source>port error: %1</source>
        <translation>Anschlussfehler: %1</translation>
    </message>
    <message>
        <source>port error: %1 (%2)</source>
        <translation>Anschlussfehler: %1 (%2)</translation>
    </message>
    <message>
        <source>port closed: %1</source>
        <translation>Anschluss geschlossen: %1</translation>
    </message>
    <message>
        <source>unsupported device version %1.%2</source>
        <translation>Geräteversion %1.%2 wird nicht unterstützt</translation>
    </message>
    <message>
        <source>unknown answer #%1</source>
        <translation>unbekannte Antwort #%1</translation>
    </message>
    <message>
        <source>%1: wrong packet length: %2</source>
        <translation>%1: falsche Paketlänge: %2</translation>
    </message>
    <message>
        <source>got an unrequested answer #%1</source>
        <translation>unverlangte Antwort #%1</translation>
    </message>
    <message>
        <source>answer not matching: expected #%1 got #%2</source>
        <translation>unpassende Antwort: #%2 statt #%1</translation>
    </message>
    <message>
        <source>timeout %1: no answer for command #%2</source>
        <translation>Zeitüberschreitung %1: keine Antwort auf Befehl #%2</translation>
    </message>
    <message>
        <source>cannot send: port is closed</source>
        <translation>Senden nicht möglich: der Anschluss ist geschlossen</translation>
    </message>
    <message>
        <source>port was closed unexpectedly</source>
        <translation>der Anschluss wurde unerwartet geschlossen</translation>
    </message>
    <message>
        <source>port was removed</source>
        <translation>der Anschluss wurde entfernt</translation>
    </message>
    <message>
        <source>unsupported sequence data format</source>
        <translation>das Format der Programmdaten wird nicht unterstützt</translation>
    </message>
    <message>
        <source>packet must start with &apos;Y&apos;</source>
        <translation>ein Paket muss mit „Y“ beginnen</translation>
    </message>
    <message>
        <source>checksum doesn&apos;t match</source>
        <translation>die Prüfsumme stimmt nicht</translation>
    </message>
    <message>
        <source>buffer overflow</source>
        <translation>Pufferüberlauf</translation>
    </message>
    <message>
        <source>timeout while trying to open device</source>
        <translation>Zeitüberschreitung beim Öffnen des Geräts</translation>
    </message>
    <message>
        <source>too many timeouts while trying to send</source>
        <translation>zu viele Zeitüberschreitungen beim Senden</translation>
    </message>
    <message>
        <source>a lock was left over by a program that has ended</source>
        <translation>eine Sperre ist von einem beendeten Programm übrig geblieben</translation>
    </message>
    <message>
        <source>%1 says that process %2 uses %3, but that process has ended</source>
        <translation>Laut %1 benutzt Prozess %2 %3, aber dieser Prozess ist beendet</translation>
    </message>
    <message>
        <source>Remove the lock; the controller is then found by itself:</source>
        <translation>Entfernen Sie die Sperre; der Controller wird dann von selbst gefunden:</translation>
    </message>
</context>
</TS>
