<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutBox</name>
    <message>
        <source>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;A subtitle editor for fixing subtitle timing against a movie.&lt;/p&gt;</source>
        <translation>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;Ein Untertitel-Editor, mit dem Sie das Timing von Untertiteln an einem Film ausrichten.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Running with:</source>
        <translation>Läuft mit:</translation>
    </message>
</context>
<context>
    <name>CTAppDelegate</name>
    <message>
        <source>The subtitles have changed since they were embedded into the movie.</source>
        <translation>Die Untertitel haben sich geändert, seit sie in den Film eingebettet wurden.</translation>
    </message>
    <message>
        <source>Find and Replace</source>
        <translation>Suchen und Ersetzen</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Fe&amp;nster</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Reset Messages</source>
        <translation>Meldungen zurücksetzen</translation>
    </message>
    <message>
        <source>Show the disclaimer and the Tap2Sync explanation again</source>
        <translation>Den Haftungshinweis und die Erklärung zu Tap2Sync wieder anzeigen</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Disclaimer</source>
        <translation>Haftungshinweis</translation>
    </message>
    <message>
        <source>Studios can protect a Movie&apos;s/TV-show&apos;s dialog and translations with a copyright. For those movies/TV-shows creating or downloading a subtitle infringes copyright law.</source>
        <translation>Filmstudios können die Dialoge und Übersetzungen eines Films oder einer Serie urheberrechtlich schützen. Bei diesen Filmen und Serien verletzt das Erstellen oder Herunterladen von Untertiteln das Urheberrecht.</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Captora is still working.</source>
        <translation>Captora arbeitet noch.</translation>
    </message>
    <message>
        <source>%1 has not finished. Quitting now would lose its work. Stop it and quit when it has stopped, or let it finish?</source>
        <translation>Noch nicht abgeschlossen: %1. Wenn Sie jetzt beenden, geht diese Arbeit verloren. Möchten Sie anhalten und beenden, sobald alles angehalten ist, oder die Arbeit abschließen lassen?</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Anhalten und beenden</translation>
    </message>
    <message>
        <source>Keep Working</source>
        <translation>Weiterarbeiten</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>CTFixButton</name>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Einzeln</translation>
    </message>
    <message>
        <source>Tap</source>
        <comment>fix mode in Tap2Sync</comment>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fixieren</translation>
    </message>
</context>
<context>
    <name>CTLanguage</name>
    <message>
        <source>Unknown</source>
        <comment>a language</comment>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>%1 Subtitle</source>
        <comment>a subtitle file in a language</comment>
        <translation>Untertitel %1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleEmbedder</name>
    <message>
        <source>Embedding Subtitles into %1</source>
        <translation>Untertitel werden in „%1“ eingebettet</translation>
    </message>
    <message>
        <source>Failed: %1 exists</source>
        <translation>Fehlgeschlagen: %1 ist bereits vorhanden</translation>
    </message>
    <message>
        <source>The movie &apos;%1&apos; is damaged: %2.
 Do you want to continue embedding what can be read?</source>
        <translation>Der Film „%1“ ist beschädigt: %2.
 Möchten Sie einbetten, was sich lesen lässt?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Subtitle &apos;%1&apos; cannot be embedded (file or structure broken).
 Do you want to continue embedding without this subtitle</source>
        <translation>Der Untertitel „%1“ kann nicht eingebettet werden (Datei oder Aufbau beschädigt).
 Möchten Sie ohne diesen Untertitel weiter einbetten?</translation>
    </message>
    <message>
        <source>Failed: Broken Data</source>
        <translation>Fehlgeschlagen: beschädigte Daten</translation>
    </message>
    <message>
        <source>Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts.</source>
        <translation>Das Einbetten der Datei, die Sie gerade bearbeiten, ist abgeschlossen. Die Datei wird neu geladen, damit es keine Konflikte gibt.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Optimizing</source>
        <translation>Wird optimiert</translation>
    </message>
    <message>
        <source>Audio-Video engine gave back the following error:
%1</source>
        <translation>Die Audio- und Videobibliothek meldete folgenden Fehler:
%1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleExtractor</name>
    <message>
        <source>A subtitle with the name &apos;%1&apos; already exists</source>
        <translation>Ein Untertitel mit dem Namen „%1“ ist bereits vorhanden</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Beide behalten</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
</context>
<context>
    <name>CTWindowController</name>
    <message>
        <source>You have unsaved changes. Do you want to save them?</source>
        <translation>Es gibt ungespeicherte Änderungen. Möchten Sie sie speichern?</translation>
    </message>
    <message>
        <source>Save Chapter Marks</source>
        <translation>Kapitelmarken speichern</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Untertitel speichern</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Chapter %1</source>
        <comment>the text of a new chapter mark</comment>
        <translation>Kapitel %1</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <comment>the text of a new subtitle line</comment>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Extract 1 Subtitle and Chapter Marks</source>
        <translation>1 Untertitel und Kapitelmarken extrahieren</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles and Chapter Marks</source>
        <translation>
            <numerusform>%n Untertitel und Kapitelmarken extrahieren</numerusform>
            <numerusform>%n Untertitel und Kapitelmarken extrahieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract 1 Subtitle</source>
        <translation>1 Untertitel extrahieren</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles</source>
        <translation>
            <numerusform>%n Untertitel extrahieren</numerusform>
            <numerusform>%n Untertitel extrahieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract Chapter Marks</source>
        <translation>Kapitelmarken extrahieren</translation>
    </message>
    <message>
        <source>No Extractable Subtitle or Chapter Marks</source>
        <translation>Keine extrahierbaren Untertitel oder Kapitelmarken</translation>
    </message>
    <message>
        <source>Reload Chapter Marks</source>
        <translation>Kapitelmarken neu laden</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Untertitel neu laden</translation>
    </message>
    <message>
        <source>Fix Single Chapter Mark Time</source>
        <translation>Einzelne Kapitelmarke fixieren</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Einzelne Untertitelzeile fixieren</translation>
    </message>
    <message>
        <source>Delete Chapter Mark</source>
        <translation>Kapitelmarke löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Chapter Marks</source>
        <translation>
            <numerusform>%n Kapitelmarke löschen</numerusform>
            <numerusform>%n Kapitelmarken löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Untertitelzeile löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Subtitle Lines</source>
        <translation>
            <numerusform>%n Untertitelzeile löschen</numerusform>
            <numerusform>%n Untertitelzeilen löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Add Chapter Mark</source>
        <translation>Kapitelmarke hinzufügen</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Untertitelzeile hinzufügen</translation>
    </message>
    <message>
        <source>Exit &quot;Tap2Sync&quot; Mode</source>
        <translation>Modus „Tap2Sync“ beenden</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Modus „Tap2Sync“ starten</translation>
    </message>
    <message>
        <source>Minimum is bigger than Maximum</source>
        <translation>Das Minimum ist größer als das Maximum</translation>
    </message>
    <message>
        <source>Overwrite Chaper Marks File?</source>
        <translation>Datei mit Kapitelmarken überschreiben?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>The chapter mark file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Die Datei mit Kapitelmarken kann nicht gelesen werden. Sie ist vermutlich fehlerhaft oder in einem ungewöhnlichen Format.</translation>
    </message>
    <message>
        <source>The subtitle file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Die Untertiteldatei kann nicht gelesen werden. Sie ist vermutlich fehlerhaft oder in einem ungewöhnlichen Format.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Are you sure your want to delete &apos;%1&apos;
%2</source>
        <translation>Möchten Sie „%1“ wirklich löschen?
%2</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>„%1“ löschen</translation>
    </message>
    <message>
        <source>No Language</source>
        <translation>Keine Sprache</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Kapitelmarken</translation>
    </message>
    <message>
        <source>Delete Chapter Marks File</source>
        <translation>Datei mit Kapitelmarken löschen</translation>
    </message>
    <message>
        <source>Set Subtitle Language</source>
        <translation>Sprache der Untertitel festlegen</translation>
    </message>
    <message>
        <source>Delete Current Language</source>
        <translation>Aktuelle Sprache löschen</translation>
    </message>
    <message>
        <source>Rescan Subtitles</source>
        <translation>Untertitel neu suchen</translation>
    </message>
    <message>
        <source>Download via Web Search</source>
        <translation>Über die Websuche herunterladen</translation>
    </message>
    <message>
        <source>Open Existing Subtitle</source>
        <translation>Vorhandene Untertitel öffnen</translation>
    </message>
    <message>
        <source>Add Empty Subtitle</source>
        <translation>Leere Untertitel hinzufügen</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie</source>
        <translation>Untertitel in den Film einbetten</translation>
    </message>
    <message>
        <source>Choose the language of the new subtitle file:</source>
        <translation>Wählen Sie die Sprache der neuen Untertiteldatei:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Keine Tonspur</translation>
    </message>
    <message>
        <source>The movie “%1” could not be opened.</source>
        <translation>Der Film „%1“ konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>No player here can play it.

%1</source>
        <translation>Keiner der Player hier kann ihn abspielen.

%1</translation>
    </message>
    <message>
        <source>Do you want to embed your subtitles into the M4V file?</source>
        <translation>Möchten Sie Ihre Untertitel in die M4V-Datei einbetten?</translation>
    </message>
    <message>
        <source>Open Embedding Options</source>
        <translation>Optionen zum Einbetten öffnen</translation>
    </message>
    <message>
        <source>Don&apos;t Embed Subtitles</source>
        <translation>Untertitel nicht einbetten</translation>
    </message>
    <message>
        <source>How to use &quot;Tap2Sync&quot;</source>
        <translation>So funktioniert „Tap2Sync“</translation>
    </message>
    <message>
        <source>Tap2Sync let&apos;s you quickly sync a full video by watching it. Whenever you hear the current subtitle instantly press space. It will fix that subtitle and move to the next.</source>
        <translation>Mit Tap2Sync synchronisieren Sie einen ganzen Film schnell, während Sie ihn ansehen. Sobald Sie die aktuelle Untertitelzeile hören, drücken Sie sofort die Leertaste. Die Zeile wird dann fixiert, und es geht zur nächsten.</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin Tap2Sync</comment>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Typing</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Erzwungen</translation>
    </message>
    <message>
        <source>This change leaves the lines after it no room before the next anchor.</source>
        <translation>Diese Änderung lässt den Zeilen danach keinen Platz vor dem nächsten Anker.</translation>
    </message>
    <message>
        <source>It was taken back. Choose an earlier time, or remove the anchor after it.</source>
        <translation>Sie wurde zurückgenommen. Wählen Sie eine frühere Zeit, oder entfernen Sie den Anker danach.</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Recover unsaved changes to %1 from %2?</source>
        <translation>Nicht gespeicherte Änderungen an %1 vom %2 wiederherstellen?</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen wiederherstellen</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Alle ersetzen</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>Zeile hinzufügen</translation>
    </message>
    <message>
        <source>Delete Line</source>
        <translation>Zeile löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Lines</source>
        <translation>
            <numerusform>%n Zeile löschen</numerusform>
            <numerusform>%n Zeilen löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Dauer anpassen</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>Fixieren</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Fix Single Line</source>
        <translation>Einzelne Zeile fixieren</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Beginn</translation>
    </message>
</context>
<context>
    <name>CueListEditor</name>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>CueTableModel</name>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Erzwungen</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Anchor: a fix does not move this line</source>
        <translation>Anker: Fixieren verschiebt diese Zeile nicht</translation>
    </message>
    <message>
        <source>Starts %1 s before the line before it ends</source>
        <translation>Beginnt %1 s, bevor die vorige Zeile endet</translation>
    </message>
    <message>
        <source>Only %1 s after the line before it (less than two frames)</source>
        <translation>Nur %1 s nach der vorigen Zeile (weniger als zwei Bilder)</translation>
    </message>
    <message>
        <source>Faster than the limit of %1 characters per second</source>
        <translation>Schneller als die Grenze von %1 Zeichen pro Sekunde</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Anker</translation>
    </message>
    <message>
        <source>Anchors: lines a fix does not move</source>
        <translation>Anker: Zeilen, die Fixieren nicht verschiebt</translation>
    </message>
    <message>
        <source>Reading speed in characters per second</source>
        <translation>Lesegeschwindigkeit in Zeichen pro Sekunde</translation>
    </message>
    <message>
        <source>End</source>
        <comment>end time of a line</comment>
        <translation>Ende</translation>
    </message>
    <message>
        <source>CPS</source>
        <comment>characters per second, a column title</comment>
        <translation>Z/s</translation>
    </message>
</context>
<context>
    <name>CueTableView</name>
    <message>
        <source>Subtitle lines</source>
        <translation>Untertitelzeilen</translation>
    </message>
</context>
<context>
    <name>EmbedOptionsDialog</name>
    <message>
        <source>Embedding Options</source>
        <translation>Optionen zum Einbetten</translation>
    </message>
    <message>
        <source>Embed Subtitles into “%1”</source>
        <translation>Untertitel in „%1“ einbetten</translation>
    </message>
    <message>
        <source>The ticked tracks go into a new movie, “%1”, with the movie&apos;s picture and sound. When it is complete it takes the movie&apos;s place, and the original movie is kept beside it.</source>
        <translation>Die angehakten Spuren kommen zusammen mit Bild und Ton des Films in einen neuen Film, „%1“. Wenn er fertig ist, tritt er an die Stelle des Films, und der ursprüngliche Film bleibt daneben erhalten.</translation>
    </message>
    <message>
        <source>Embed</source>
        <translation>Einbetten</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Kapitelmarken</translation>
    </message>
    <message>
        <source>There are no subtitle files beside the movie and no text tracks in it.</source>
        <translation>Neben dem Film liegen keine Untertiteldateien, und der Film enthält keine Textspuren.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>File beside the movie</source>
        <translation>Datei neben dem Film</translation>
    </message>
    <message>
        <source>Track in the movie</source>
        <translation>Spur im Film</translation>
    </message>
</context>
<context>
    <name>FixPanel</name>
    <message>
        <source>The pending shift of the current line; the ring fills with a shift of a tenth of the movie</source>
        <translation>Die anstehende Verschiebung der aktuellen Zeile; der Ring ist bei einem Zehntel der Filmlänge ganz gefüllt</translation>
    </message>
    <message>
        <source>Left: the lines between the fixed lines as they are, the current one in yellow. Right: where the fix puts them, the current one in red. Red all over: outside the fixed lines, nothing would move.</source>
        <translation>Links: die Zeilen zwischen den fixierten Zeilen, wie sie sind, die aktuelle gelb. Rechts: wohin die Korrektur sie setzt, die aktuelle rot. Ganz rot: außerhalb der fixierten Zeilen, nichts würde sich bewegen.</translation>
    </message>
    <message>
        <source>Fix: the lines between the nearest fixed lines stretch to follow the current one</source>
        <translation>Fixieren: die Zeilen zwischen den nächsten fixierten Zeilen werden gedehnt und folgen der aktuellen</translation>
    </message>
    <message>
        <source>Shift: the lines between the nearest fixed lines move by the same amount (hold Shift)</source>
        <translation>Verschieben: die Zeilen zwischen den nächsten fixierten Zeilen rücken um denselben Betrag (Umschalttaste halten)</translation>
    </message>
    <message>
        <source>Single: only the current line moves (hold Alt)</source>
        <translation>Einzeln: nur die aktuelle Zeile bewegt sich (Alt halten)</translation>
    </message>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Einzeln</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fixieren</translation>
    </message>
    <message>
        <source>Select a line to fix its start.</source>
        <translation>Wählen Sie eine Zeile, um ihren Anfang zu korrigieren.</translation>
    </message>
    <message>
        <source>Press space the moment you hear the line; Escape stops.</source>
        <translation>Drücken Sie die Leertaste, sobald Sie die Zeile hören; Esc beendet.</translation>
    </message>
    <message>
        <source>Outside the fixed lines around it: nothing would move.</source>
        <translation>Außerhalb der fixierten Zeilen um sie herum: nichts würde sich bewegen.</translation>
    </message>
    <message>
        <source>Only this line moves, by %1.</source>
        <translation>Nur diese Zeile bewegt sich, um %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n lines, up to the nearest fixed lines, move by %1 together.</source>
        <translation>
            <numerusform>%n Zeile bis zu den nächsten fixierten Zeilen rückt um %1.</numerusform>
            <numerusform>%n Zeilen bis zu den nächsten fixierten Zeilen rücken gemeinsam um %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This line moves by %1; the lines up to the nearest fixed lines stretch with it (%n in all).</source>
        <translation>
            <numerusform>Diese Zeile rückt um %1; die Zeilen bis zu den nächsten fixierten Zeilen werden mitgedehnt (%n insgesamt).</numerusform>
            <numerusform>Diese Zeile rückt um %1; die Zeilen bis zu den nächsten fixierten Zeilen werden mitgedehnt (%n insgesamt).</numerusform>
        </translation>
    </message>
    <message>
        <source>typed, Return applies</source>
        <translation>↵ übernimmt</translation>
    </message>
</context>
<context>
    <name>FolderPermissions</name>
    <message>
        <source>To work with subtitle files we need your permission to write in to the folder your movie is in.
Please Open this folder in the upcoming window. (Make sure you have write permission for the folder.)</source>
        <translation>Um mit Untertiteldateien zu arbeiten, braucht Captora Schreibzugriff auf den Ordner, in dem Ihr Film liegt.
Bitte öffnen Sie diesen Ordner im folgenden Fenster. (Achten Sie darauf, dass Sie in diesem Ordner schreiben dürfen.)</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Deny Access</source>
        <translation>Zugriff verweigern</translation>
    </message>
</context>
<context>
    <name>MovieServices</name>
    <message>
        <source>Extract Subtitles</source>
        <translation>Untertitel extrahieren</translation>
    </message>
    <message numerus="yes">
        <source>%n track(s) could not be read completely.</source>
        <translation>
            <numerusform>%n Spur konnte nicht vollständig gelesen werden.</numerusform>
            <numerusform>%n Spuren konnten nicht vollständig gelesen werden.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaybackAids</name>
    <message>
        <source>Set End</source>
        <translation>Ende setzen</translation>
    </message>
</context>
<context>
    <name>PlaybackMenu</name>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>Play Current Line</source>
        <translation>Aktuelle Zeile abspielen</translation>
    </message>
    <message>
        <source>Loop Current Line</source>
        <translation>Aktuelle Zeile wiederholen</translation>
    </message>
    <message>
        <source>Play from Half a Second Before</source>
        <translation>Ab einer halben Sekunde davor abspielen</translation>
    </message>
    <message>
        <source>%1× Speed</source>
        <translation>%1× Geschwindigkeit</translation>
    </message>
    <message>
        <source>Set Start to Playing Time</source>
        <translation>Beginn auf die Wiedergabezeit setzen</translation>
    </message>
    <message>
        <source>Set End to Playing Time</source>
        <translation>Ende auf die Wiedergabezeit setzen</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Subtitle Files</source>
        <translation>Untertiteldateien</translation>
    </message>
    <message>
        <source>Read files in:</source>
        <translation>Zeichenkodierung beim Lesen:</translation>
    </message>
    <message>
        <source>“Automatic” recognises the encoding of each file.</source>
        <translation>„Automatisch“ erkennt die Zeichenkodierung jeder Datei.</translation>
    </message>
    <message>
        <source>Same as for reading</source>
        <translation>Wie beim Lesen</translation>
    </message>
    <message>
        <source>Export in:</source>
        <translation>Zeichenkodierung beim Export:</translation>
    </message>
    <message>
        <source>The export window starts with this encoding
and remembers what you choose there.</source>
        <translation>Das Exportfenster beginnt mit dieser Zeichenkodierung
und merkt sich, was Sie dort wählen.</translation>
    </message>
    <message>
        <source>Interface Language</source>
        <translation>Sprache der Oberfläche</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
    <message>
        <source>List languages without their region</source>
        <translation>Sprachen ohne ihre Region auflisten</translation>
    </message>
    <message>
        <source>A new interface language applies the next time Captora starts.
The language also decides which subtitle file of a movie opens first.</source>
        <translation>Eine neue Sprache der Oberfläche gilt ab dem nächsten Start von Captora.
Die Sprache entscheidet auch, welche Untertiteldatei eines Films zuerst geöffnet wird.</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Timing</translation>
    </message>
    <message>
        <source>Tap2Sync rewinds by:</source>
        <translation>Tap2Sync spult zurück um:</translation>
    </message>
    <message>
        <source>Tap2Sync reaction time:</source>
        <translation>Reaktionszeit für Tap2Sync:</translation>
    </message>
    <message>
        <source>A tap fixes the line at the playing time
minus your reaction time.</source>
        <translation>Ein Tippen fixiert die Zeile bei der Abspielzeit
abzüglich Ihrer Reaktionszeit.</translation>
    </message>
    <message>
        <source> characters per second</source>
        <translation> Zeichen pro Sekunde</translation>
    </message>
    <message>
        <source>Reading speed limit:</source>
        <translation>Höchste Lesegeschwindigkeit:</translation>
    </message>
    <message>
        <source>Saving and Playing</source>
        <translation>Speichern und Abspielen</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Autosave every:</source>
        <translation>Automatisch speichern alle:</translation>
    </message>
    <message>
        <source>libmpv, then libVLC</source>
        <translation>libmpv, dann libVLC</translation>
    </message>
    <message>
        <source>libVLC, then libmpv</source>
        <translation>libVLC, dann libmpv</translation>
    </message>
    <message>
        <source>Play movies with:</source>
        <translation>Filme abspielen mit:</translation>
    </message>
    <message>
        <source>Subtitles can be embedded into and extracted from movies that libmpv plays.
The player applies to the next movie you open.</source>
        <translation>Untertitel lassen sich in Filme einbetten und aus Filmen extrahieren, die libmpv abspielt.
Der Player gilt für den nächsten Film, den Sie öffnen.</translation>
    </message>
    <message>
        <source>Snap fixes to the start of speech</source>
        <translation>Fixierungen am Beginn von Sprache einrasten lassen</translation>
    </message>
    <message>
        <source>Snap within:</source>
        <translation>Einrasten innerhalb von:</translation>
    </message>
    <message>
        <source>A fix, a tap or a dragged start moves to speech that starts this close.
Hold the Meta (Super) key to fix at the time as it is.</source>
        <translation>Eine Fixierung, ein Tippen oder ein gezogener Beginn rückt auf Sprache, die so nah beginnt.
Halten Sie die Meta-Taste (Super), um genau bei der Zeit zu fixieren.</translation>
    </message>
    <message>
        <source>Hear 5.1 sound on its centre channel (dialogue)</source>
        <translation>5.1-Ton über den Centerkanal hören (Dialog)</translation>
    </message>
    <message>
        <source>The timeline&apos;s waveform and speech come from the channel films keep their dialogue on.</source>
        <translation>Wellenform und Sprache der Zeitleiste kommen aus dem Kanal, auf dem Filme ihre Dialoge haben.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Tasks</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>No tasks</source>
        <translation>Keine Aufgaben</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Abgeschlossene entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Open the folder of the file this task wrote</source>
        <translation>Den Ordner der Datei öffnen, die diese Aufgabe geschrieben hat</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>In Arbeit …</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>ProjectWindow</name>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Five frames</source>
        <translation>Fünf Bilder</translation>
    </message>
    <message>
        <source>One frame</source>
        <translation>Ein Bild</translation>
    </message>
    <message>
        <source>Show the subtitle over the movie</source>
        <translation>Untertitel über dem Film anzeigen</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Case-sensitive search</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Alle ersetzen</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Erzwungen</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>The times the current line&apos;s start may be fixed between</source>
        <translation>Der Bereich, in dem der Beginn der aktuellen Zeile fixiert werden kann</translation>
    </message>
    <message>
        <source>Files (%1)</source>
        <translation>Dateien (%1)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open Movie…</source>
        <translation>Film öffnen …</translation>
    </message>
    <message>
        <source>Open Subtitle…</source>
        <translation>Untertitel öffnen …</translation>
    </message>
    <message>
        <source>New Subtitle…</source>
        <translation>Neue Untertitel …</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Untertitel speichern</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Untertitel neu laden</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie…</source>
        <translation>Untertitel in den Film einbetten …</translation>
    </message>
    <message>
        <source>Extract Subtitles</source>
        <translation>Untertitel extrahieren</translation>
    </message>
    <message>
        <source>Download via Web Search…</source>
        <translation>Über die Websuche herunterladen …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Untertitelzeile hinzufügen</translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Untertitelzeile löschen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Next Line</source>
        <translation>Nächste Zeile</translation>
    </message>
    <message>
        <source>Previous Line</source>
        <translation>Vorherige Zeile</translation>
    </message>
    <message>
        <source>Adjust Durations…</source>
        <translation>Dauer anpassen …</translation>
    </message>
    <message>
        <source>Add Subtitle Language…</source>
        <translation>Untertitelsprache hinzufügen …</translation>
    </message>
    <message>
        <source>&amp;Chapter Marks</source>
        <translation>&amp;Kapitelmarken</translation>
    </message>
    <message>
        <source>Edit Chapter Marks</source>
        <translation>Kapitelmarken bearbeiten</translation>
    </message>
    <message>
        <source>Convert Chapter Marks to Subtitle</source>
        <translation>Kapitelmarken in Untertitel umwandeln</translation>
    </message>
    <message>
        <source>&amp;Timing</source>
        <translation>&amp;Timing</translation>
    </message>
    <message>
        <source>Fix Subtitle Start</source>
        <translation>Untertitelbeginn fixieren</translation>
    </message>
    <message>
        <source>Shift Subtitles</source>
        <translation>Untertitel verschieben</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Einzelne Untertitelzeile fixieren</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Modus „Tap2Sync“ starten</translation>
    </message>
    <message>
        <source>&amp;Movie</source>
        <translation>&amp;Film</translation>
    </message>
    <message>
        <source>One Frame Back</source>
        <translation>Ein Bild zurück</translation>
    </message>
    <message>
        <source>One Frame Forward</source>
        <translation>Ein Bild vor</translation>
    </message>
    <message>
        <source>Five Frames Back</source>
        <translation>Fünf Bilder zurück</translation>
    </message>
    <message>
        <source>Five Frames Forward</source>
        <translation>Fünf Bilder vor</translation>
    </message>
    <message>
        <source>Audio Track</source>
        <translation>Tonspur</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Keine Tonspur</translation>
    </message>
    <message>
        <source>No Subtitle</source>
        <translation>Keine Untertitel</translation>
    </message>
    <message>
        <source>Windows line breaks</source>
        <translation>Windows-Zeilenumbrüche</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Encoding:</source>
        <translation>Zeichenkodierung:</translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Dauer anpassen</translation>
    </message>
    <message>
        <source>Seconds per character:</source>
        <translation>Sekunden pro Zeichen:</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>Minimum:</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>Maximum:</translation>
    </message>
    <message>
        <source>Gap:</source>
        <translation>Abstand:</translation>
    </message>
    <message>
        <source>Only selected lines</source>
        <translation>Nur ausgewählte Zeilen</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin adjusting</comment>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Show Timeline</source>
        <translation>Zeitleiste anzeigen</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Show Whole Movie</source>
        <translation>Ganzen Film zeigen</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Five frames back</source>
        <translation>Fünf Bilder zurück</translation>
    </message>
    <message>
        <source>One frame back</source>
        <translation>Ein Bild zurück</translation>
    </message>
    <message>
        <source>One frame forward</source>
        <translation>Ein Bild vor</translation>
    </message>
    <message>
        <source>Five frames forward</source>
        <translation>Fünf Bilder vor</translation>
    </message>
    <message>
        <source>Playing position</source>
        <translation>Wiedergabeposition</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Wiedergabezeit</translation>
    </message>
    <message>
        <source>Subtitle language</source>
        <translation>Untertitelsprache</translation>
    </message>
    <message>
        <source>No line changed</source>
        <translation>Keine Zeile geändert</translation>
    </message>
    <message>
        <source>Replaced in 1 line</source>
        <translation>In 1 Zeile ersetzt</translation>
    </message>
    <message numerus="yes">
        <source>Replaced in %n lines</source>
        <translation>
            <numerusform>In %n Zeile ersetzt</numerusform>
            <numerusform>In %n Zeilen ersetzt</numerusform>
        </translation>
    </message>
    <message>
        <source>Start time of the line</source>
        <translation>Beginn der Zeile</translation>
    </message>
    <message>
        <source>Duration of the line</source>
        <translation>Dauer der Zeile</translation>
    </message>
    <message>
        <source>Text of the line</source>
        <translation>Text der Zeile</translation>
    </message>
    <message>
        <source>Show Tutorial</source>
        <translation>Einführung zeigen</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open Recent</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Menü leeren</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source> or </source>
        <comment>between two keys</comment>
        <translation> oder </translation>
    </message>
    <message>
        <source>Without a menu item</source>
        <translation>Ohne Menüeintrag</translation>
    </message>
    <message>
        <source>Hold for the fix mode Shift (the lines move by as much)</source>
        <translation>Halten für den Modus „Verschieben“ (die Zeilen rücken gleich weit)</translation>
    </message>
    <message>
        <source>Hold for the fix mode Single (only the current line moves)</source>
        <translation>Halten für den Modus „Einzeln“ (nur die aktuelle Zeile bewegt sich)</translation>
    </message>
    <message>
        <source>In Tap2Sync: fix the current line as it begins</source>
        <translation>In Tap2Sync: die aktuelle Zeile fixieren, wenn sie beginnt</translation>
    </message>
    <message>
        <source>Leave Tap2Sync, or leave full screen</source>
        <translation>Tap2Sync oder Vollbild verlassen</translation>
    </message>
    <message>
        <source>Edit the selected line&apos;s cell</source>
        <translation>Zelle der ausgewählten Zeile bearbeiten</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
</context>
<context>
    <name>SubtitleSalvage</name>
    <message>
        <source>found no cue</source>
        <translation>fand keinen Untertitel</translation>
    </message>
    <message>
        <source>found no [Events] section</source>
        <translation>fand keinen Abschnitt [Events]</translation>
    </message>
    <message>
        <source>found no Start, End and Text in its Format line</source>
        <translation>fand in der Format-Zeile kein Start, End und Text</translation>
    </message>
    <message>
        <source>found no Format line under [Events]</source>
        <translation>fand keine Format-Zeile unter [Events]</translation>
    </message>
    <message>
        <source>found no Dialogue line</source>
        <translation>fand keine Dialogue-Zeile</translation>
    </message>
    <message>
        <source>No reader accepts this subtitle file.</source>
        <translation>Kein Leser kann diese Untertiteldatei lesen.</translation>
    </message>
    <message>
        <source>%1 stopped at line %2: “%3”</source>
        <translation>%1 brach in Zeile %2 ab: „%3“</translation>
    </message>
    <message>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message numerus="yes">
        <source>Read as %1, leaving out %n line(s) it cannot place. Saving writes a clean file.</source>
        <translation>
            <numerusform>Als %1 gelesen, ohne %n Zeile, die sich nicht zuordnen lässt. Beim Speichern entsteht eine saubere Datei.</numerusform>
            <numerusform>Als %1 gelesen, ohne %n Zeilen, die sich nicht zuordnen lassen. Beim Speichern entsteht eine saubere Datei.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Load the %n lines that could be read</source>
        <translation>
            <numerusform>Die %n lesbare Zeile laden</numerusform>
            <numerusform>Die %n lesbaren Zeilen laden</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>TimelineAudio</name>
    <message>
        <source>No sound to show</source>
        <translation>Kein Ton zum Anzeigen</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Drag to fix the line&apos;s start here (Meta: without snapping to speech).</source>
        <translation>Ziehen, um den Beginn der Zeile hier zu fixieren (Meta: ohne Einrasten an Sprache).</translation>
    </message>
    <message>
        <source>Drag to change the line&apos;s end.</source>
        <translation>Ziehen, um das Ende der Zeile zu ändern.</translation>
    </message>
    <message>
        <source>Click to go to a time, drag to scrub. Ctrl+wheel zooms, the wheel scrolls.</source>
        <translation>Klicken springt zu einer Zeit, Ziehen spult. Strg+Mausrad zoomt, das Mausrad blättert.</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Endzeit</translation>
    </message>
</context>
<context>
    <name>TutorialOverlay</name>
    <message>
        <source>Three things to know</source>
        <translation>Drei Dinge, die Sie wissen sollten</translation>
    </message>
    <message>
        <source>Click a line to go there.</source>
        <translation>Klicken Sie eine Zeile an, um dorthin zu springen.</translation>
    </message>
    <message>
        <source>The movie jumps to the line&apos;s start. Alt-click selects it without moving the movie.</source>
        <translation>Der Film springt an den Anfang der Zeile. Alt-Klick wählt sie aus, ohne den Film zu bewegen.</translation>
    </message>
    <message>
        <source>Press the fix key (%1) when you hear it.</source>
        <translation>Drücken Sie die Korrekturtaste (%1), wenn Sie sie hören.</translation>
    </message>
    <message>
        <source>The line starts at that moment, and the lines up to the nearest fixed lines follow. The strip beside the fix button shows where they will go before you press it.</source>
        <translation>Die Zeile beginnt in diesem Moment, und die Zeilen bis zu den nächsten fixierten Zeilen folgen. Der Streifen neben dem Korrekturknopf zeigt vorher, wohin sie rücken.</translation>
    </message>
    <message>
        <source>Tap2Sync for a whole film.</source>
        <translation>Tap2Sync für einen ganzen Film.</translation>
    </message>
    <message>
        <source>Timing › Enter &quot;Tap2Sync&quot; Mode (%1): watch the film and press space each time a line is spoken.</source>
        <translation>Timing › Modus „Tap2Sync“ starten (%1): Schauen Sie den Film und drücken Sie die Leertaste, sobald eine Zeile gesprochen wird.</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Verstanden</translation>
    </message>
</context>
<context>
    <name>Unzipper</name>
    <message>
        <source>“%1” was not unpacked: %2</source>
        <translation>„%1“ wurde nicht entpackt: %2</translation>
    </message>
    <message>
        <source>The download is not a readable zip archive.</source>
        <translation>Der Download ist kein lesbares ZIP-Archiv.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: it has more than %1 files.</source>
        <translation>Das Archiv wurde nicht entpackt: Es enthält mehr als %1 Dateien.</translation>
    </message>
    <message>
        <source>The archive is damaged and was not unpacked.</source>
        <translation>Das Archiv ist beschädigt und wurde nicht entpackt.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: its files would take more than %1 MB.</source>
        <translation>Das Archiv wurde nicht entpackt: Seine Dateien würden mehr als %1 MB belegen.</translation>
    </message>
    <message>
        <source>a file of that name was unpacked already</source>
        <translation>eine Datei dieses Namens wurde bereits entpackt</translation>
    </message>
    <message>
        <source>its data is damaged</source>
        <translation>ihre Daten sind beschädigt</translation>
    </message>
    <message>
        <source>The archive could not be unpacked: %1</source>
        <translation>Das Archiv konnte nicht entpackt werden: %1</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>ihr Name ist zu lang</translation>
    </message>
    <message>
        <source>its name leads outside the folder</source>
        <translation>ihr Name führt aus dem Ordner hinaus</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>sie ist ein symbolischer Link</translation>
    </message>
    <message>
        <source>it is protected by a password, which Captora does not support</source>
        <translation>sie ist durch ein Passwort geschützt, was Captora nicht unterstützt</translation>
    </message>
</context>
<context>
    <name>VHEncoding</name>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>UTF-16 Big Endian</source>
        <translation>UTF-16 Big Endian</translation>
    </message>
    <message>
        <source>UTF-16 Little Endian</source>
        <translation>UTF-16 Little Endian</translation>
    </message>
    <message>
        <source>UTF-32 Big Endian</source>
        <translation>UTF-32 Big Endian</translation>
    </message>
    <message>
        <source>UTF-32 Little Endian</source>
        <translation>UTF-32 Little Endian</translation>
    </message>
    <message>
        <source>Window Latin 1</source>
        <translation>Windows Latin 1</translation>
    </message>
    <message>
        <source>Window Latin 2</source>
        <translation>Windows Latin 2</translation>
    </message>
    <message>
        <source>Window Latin 5</source>
        <translation>Windows Latin 5</translation>
    </message>
    <message>
        <source>Non Lossy ASCII</source>
        <translation>Verlustfreies ASCII</translation>
    </message>
    <message>
        <source>Chinese GB 18030</source>
        <translation>Chinesisch GB 18030</translation>
    </message>
    <message>
        <source>Chinese Simp. (DOS)</source>
        <translation>Chinesisch vereinfacht (DOS)</translation>
    </message>
    <message>
        <source>Chinese Simp. (Mac)</source>
        <translation>Chinesisch vereinfacht (Mac)</translation>
    </message>
    <message>
        <source>Chinese Trad. (DOS)</source>
        <translation>Chinesisch traditionell (DOS)</translation>
    </message>
    <message>
        <source>Chinese Trad (Mac)</source>
        <translation>Chinesisch traditionell (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (DOS)</source>
        <translation>Kyrillisch (DOS)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO)</source>
        <translation>Kyrillisch (ISO)</translation>
    </message>
    <message>
        <source>Cyrillic (Mac)</source>
        <translation>Kyrillisch (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows)</source>
        <translation>Kyrillisch (Windows)</translation>
    </message>
    <message>
        <source>Greek (DOS)</source>
        <translation>Griechisch (DOS)</translation>
    </message>
    <message>
        <source>Greek (ISO)</source>
        <translation>Griechisch (ISO)</translation>
    </message>
    <message>
        <source>Greek (Mac)</source>
        <translation>Griechisch (Mac)</translation>
    </message>
    <message>
        <source>Greek (Windows)</source>
        <translation>Griechisch (Windows)</translation>
    </message>
    <message>
        <source>Hebrew (DOS)</source>
        <translation>Hebräisch (DOS)</translation>
    </message>
    <message>
        <source>Hebrew (ISO)</source>
        <translation>Hebräisch (ISO)</translation>
    </message>
    <message>
        <source>Hebrew (Mac)</source>
        <translation>Hebräisch (Mac)</translation>
    </message>
    <message>
        <source>Hebrew (Windows)</source>
        <translation>Hebräisch (Windows)</translation>
    </message>
    <message>
        <source>Japanese EUC</source>
        <translation>Japanisch EUC</translation>
    </message>
    <message>
        <source>Japanese ISO 2022</source>
        <translation>Japanisch ISO 2022</translation>
    </message>
    <message>
        <source>Japanese (DOS)</source>
        <translation>Japanisch (DOS)</translation>
    </message>
    <message>
        <source>Japanese (Mac)</source>
        <translation>Japanisch (Mac)</translation>
    </message>
    <message>
        <source>Japanese (Next Step)</source>
        <translation>Japanisch (Next Step)</translation>
    </message>
    <message>
        <source>Korean (Mac)</source>
        <translation>Koreanisch (Mac)</translation>
    </message>
    <message>
        <source>Korean (Windows)</source>
        <translation>Koreanisch (Windows)</translation>
    </message>
</context>
<context>
    <name>VHLanguagePopUpButton</name>
    <message>
        <source>Add more languages</source>
        <translation>Weitere Sprachen hinzufügen</translation>
    </message>
    <message>
        <source>Captora offers the languages your desktop prefers. Add languages in your desktop&apos;s region and language settings, or list them in the LANGUAGE environment variable (for example LANGUAGE=de:fr:en), and start Captora again.</source>
        <translation>Captora bietet die Sprachen an, die Ihr Desktop bevorzugt. Fügen Sie Sprachen in den Regions- und Spracheinstellungen Ihres Desktops hinzu oder nennen Sie sie in der Umgebungsvariable LANGUAGE (zum Beispiel LANGUAGE=de:fr:en), und starten Sie Captora neu.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Add more languages ...</source>
        <translation>Weitere Sprachen hinzufügen ...</translation>
    </message>
</context>
<context>
    <name>VHMovieController</name>
    <message>
        <source>Track %1</source>
        <translation>Spur %1</translation>
    </message>
    <message>
        <source>The audio track you selected may not play on your system or even make the app crash. 
Do you want to continue?</source>
        <translation>Die gewählte Tonspur lässt sich auf Ihrem System womöglich nicht abspielen oder bringt das Programm sogar zum Absturz. 
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Use Unsafe Audio Track</source>
        <translation>Unsichere Tonspur verwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Show Subtitles</source>
        <translation>Untertitel anzeigen</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>libmpv: %1</source>
        <translation>libmpv: %1</translation>
    </message>
</context>
<context>
    <name>VHSubtitle</name>
    <message>
        <source>File language problem:</source>
        <translation>Problem mit der Sprache der Datei:</translation>
    </message>
    <message>
        <source>Could not open subtitle file using &apos;%1&apos; encoding. Please select a different encoding:</source>
        <translation>Die Untertiteldatei ließ sich mit der Zeichenkodierung „%1“ nicht öffnen. Bitte wählen Sie eine andere Zeichenkodierung:</translation>
    </message>
    <message>
        <source>Remember encoding as default.</source>
        <translation>Zeichenkodierung als Standard merken.</translation>
    </message>
    <message>
        <source>Use Selected</source>
        <translation>Ausgewählte verwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>VHWebSearchController</name>
    <message>
        <source>Download Subtitles via Web Search</source>
        <translation>Untertitel über die Websuche herunterladen</translation>
    </message>
    <message>
        <source>Movie or series name</source>
        <translation>Name des Films oder der Serie</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Your Engines</source>
        <translation>Ihre Suchmaschinen</translation>
    </message>
    <message>
        <source>“%1” is neither a subtitle file nor an archive; it was not downloaded.</source>
        <translation>„%1“ ist weder eine Untertiteldatei noch ein Archiv; es wurde nicht heruntergeladen.</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: there is no temporary folder for it.</source>
        <translation>„%1“ konnte nicht heruntergeladen werden: Es gibt keinen temporären Ordner dafür.</translation>
    </message>
    <message>
        <source>Downloading “%1”…</source>
        <translation>„%1“ wird heruntergeladen …</translation>
    </message>
    <message>
        <source>Unpacked “%1”.</source>
        <translation>„%1“ entpackt.</translation>
    </message>
    <message>
        <source>Downloaded “%1”.</source>
        <translation>„%1“ heruntergeladen.</translation>
    </message>
    <message>
        <source>The download of “%1” failed: %2</source>
        <translation>Das Herunterladen von „%1“ ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>Save RAR Archive</source>
        <translation>RAR-Archiv speichern</translation>
    </message>
    <message>
        <source>RAR archives (*.rar)</source>
        <translation>RAR-Archive (*.rar)</translation>
    </message>
    <message>
        <source>The RAR archive “%1” was not saved.</source>
        <translation>Das RAR-Archiv „%1“ wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>The RAR archive could not be saved at “%1”: %2</source>
        <translation>Das RAR-Archiv konnte nicht unter „%1“ gespeichert werden: %2</translation>
    </message>
    <message>
        <source>Saved “%1”. Captora cannot unpack RAR archives: unpack it with an archive manager and open the subtitle file.</source>
        <translation>„%1“ gespeichert. Captora kann RAR-Archive nicht entpacken: Entpacken Sie es mit einer Archivverwaltung und öffnen Sie die Untertiteldatei.</translation>
    </message>
</context>
<context>
    <name>VLCMovieController</name>
    <message>
        <source>libVLC: the file could not be read or decoded</source>
        <translation>libVLC: Die Datei konnte nicht gelesen oder dekodiert werden</translation>
    </message>
    <message>
        <source>libVLC: no video or audio it can play was found in the file</source>
        <translation>libVLC: In der Datei wurde kein abspielbares Video oder Audio gefunden</translation>
    </message>
</context>
<context>
    <name>WindowStatusBar</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Wiedergabezeit</translation>
    </message>
    <message>
        <source>The movie&apos;s playing time</source>
        <translation>Die Wiedergabezeit des Films</translation>
    </message>
    <message>
        <source>Fix mode</source>
        <translation>Fixiermodus</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Zeichenkodierung</translation>
    </message>
    <message>
        <source>The encoding the subtitle file was read in</source>
        <translation>Die Zeichenkodierung, in der die Untertiteldatei gelesen wurde</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>The number of lines in the file</source>
        <translation>Die Anzahl der Zeilen in der Datei</translation>
    </message>
    <message>
        <source>Mode: Fix</source>
        <translation>Modus: Fixieren</translation>
    </message>
    <message>
        <source>Mode: Shift</source>
        <translation>Modus: Verschieben</translation>
    </message>
    <message>
        <source>Mode: Single</source>
        <translation>Modus: Einzeln</translation>
    </message>
    <message>
        <source>Mode: Tap2Sync</source>
        <translation>Modus: Tap2Sync</translation>
    </message>
    <message>
        <source>No line to fix</source>
        <translation>Keine Zeile zum Fixieren</translation>
    </message>
    <message>
        <source>Fix: the lines between the anchors stretch</source>
        <translation>Fixieren: Die Zeilen zwischen den Ankern werden gedehnt</translation>
    </message>
    <message>
        <source>Shift: the lines between the anchors move by as much</source>
        <translation>Verschieben: Die Zeilen zwischen den Ankern rücken gleich weit</translation>
    </message>
    <message>
        <source>Single: only this line moves</source>
        <translation>Einzeln: Nur diese Zeile bewegt sich</translation>
    </message>
    <message>
        <source>Tap2Sync: tap as each line begins</source>
        <translation>Tap2Sync: Tippen Sie, wenn jede Zeile beginnt</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 Zeile</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <translation>
            <numerusform>%n Zeile</numerusform>
            <numerusform>%n Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of 1 line</source>
        <translation>%1 von 1 Zeile</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n lines</source>
        <translation>
            <numerusform>%1 von %n Zeile</numerusform>
            <numerusform>%1 von %n Zeilen</numerusform>
        </translation>
    </message>
</context>
</TS>
