<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>AboutBox</name>
    <message>
        <source>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;A subtitle editor for fixing subtitle timing against a movie.&lt;/p&gt;</source>
        <translation>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;Un editor de subtítulos para corregir la sincronización de los subtítulos con una película.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Running with:</source>
        <translation>Funciona con:</translation>
    </message>
</context>
<context>
    <name>CTAppDelegate</name>
    <message>
        <source>The subtitles have changed since they were embedded into the movie.</source>
        <translation>Los subtítulos han cambiado desde que se incorporaron a la película.</translation>
    </message>
    <message>
        <source>Find and Replace</source>
        <translation>Buscar y reemplazar</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Preferencias…</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Ventana</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Tareas</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>Reset Messages</source>
        <translation>Restablecer los mensajes</translation>
    </message>
    <message>
        <source>Show the disclaimer and the Tap2Sync explanation again</source>
        <translation>Volver a mostrar el aviso legal y la explicación de Tap2Sync</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Acerca de %1</translation>
    </message>
    <message>
        <source>Disclaimer</source>
        <translation>Aviso legal</translation>
    </message>
    <message>
        <source>Studios can protect a Movie&apos;s/TV-show&apos;s dialog and translations with a copyright. For those movies/TV-shows creating or downloading a subtitle infringes copyright law.</source>
        <translation>Los estudios pueden proteger con derechos de autor los diálogos y las traducciones de una película o serie. En esas películas y series, crear o descargar subtítulos infringe la ley de derechos de autor.</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Entendido</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Captora is still working.</source>
        <translation>Captora sigue trabajando.</translation>
    </message>
    <message>
        <source>%1 has not finished. Quitting now would lose its work. Stop it and quit when it has stopped, or let it finish?</source>
        <translation>Aún no ha terminado: %1. Si sale ahora, se perderá su trabajo. ¿Desea detenerlo y salir cuando se haya detenido, o dejar que termine?</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Detener y salir</translation>
    </message>
    <message>
        <source>Keep Working</source>
        <translation>Seguir trabajando</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
</context>
<context>
    <name>CTFixButton</name>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Sola</translation>
    </message>
    <message>
        <source>Tap</source>
        <comment>fix mode in Tap2Sync</comment>
        <translation>Pulsar</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fijar</translation>
    </message>
</context>
<context>
    <name>CTLanguage</name>
    <message>
        <source>Unknown</source>
        <comment>a language</comment>
        <translation>idioma desconocido</translation>
    </message>
    <message>
        <source>%1 Subtitle</source>
        <comment>a subtitle file in a language</comment>
        <translation>Subtítulos en %1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleEmbedder</name>
    <message>
        <source>Embedding Subtitles into %1</source>
        <translation>Incorporando los subtítulos en «%1»</translation>
    </message>
    <message>
        <source>Failed: %1 exists</source>
        <translation>Error: %1 ya existe</translation>
    </message>
    <message>
        <source>The movie &apos;%1&apos; is damaged: %2.
 Do you want to continue embedding what can be read?</source>
        <translation>La película «%1» está dañada: %2.
 ¿Desea seguir incorporando lo que se pueda leer?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Subtitle &apos;%1&apos; cannot be embedded (file or structure broken).
 Do you want to continue embedding without this subtitle</source>
        <translation>Los subtítulos «%1» no se pueden incorporar (archivo o estructura dañados).
 ¿Desea seguir incorporando sin estos subtítulos?</translation>
    </message>
    <message>
        <source>Failed: Broken Data</source>
        <translation>Error: datos dañados</translation>
    </message>
    <message>
        <source>Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts.</source>
        <translation>Ha terminado la incorporación del archivo que está editando. Hay que volver a cargarlo para evitar conflictos.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Optimizing</source>
        <translation>Optimizando</translation>
    </message>
    <message>
        <source>Audio-Video engine gave back the following error:
%1</source>
        <translation>El motor de audio y vídeo devolvió el siguiente error:
%1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleExtractor</name>
    <message>
        <source>A subtitle with the name &apos;%1&apos; already exists</source>
        <translation>Ya existen unos subtítulos con el nombre «%1»</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Conservar ambos</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Omitir</translation>
    </message>
</context>
<context>
    <name>CTWindowController</name>
    <message>
        <source>You have unsaved changes. Do you want to save them?</source>
        <translation>Hay cambios sin guardar. ¿Desea guardarlos?</translation>
    </message>
    <message>
        <source>Save Chapter Marks</source>
        <translation>Guardar las marcas de capítulo</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Guardar los subtítulos</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>Descartar los cambios</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Chapter %1</source>
        <comment>the text of a new chapter mark</comment>
        <translation>Capítulo %1</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <comment>the text of a new subtitle line</comment>
        <translation>Subtítulo</translation>
    </message>
    <message>
        <source>Extract 1 Subtitle and Chapter Marks</source>
        <translation>Extraer 1 subtítulo y las marcas de capítulo</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles and Chapter Marks</source>
        <translation>
            <numerusform>Extraer %n subtítulo y las marcas de capítulo</numerusform>
            <numerusform>Extraer %n subtítulos y las marcas de capítulo</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract 1 Subtitle</source>
        <translation>Extraer 1 subtítulo</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles</source>
        <translation>
            <numerusform>Extraer %n subtítulo</numerusform>
            <numerusform>Extraer %n subtítulos</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract Chapter Marks</source>
        <translation>Extraer las marcas de capítulo</translation>
    </message>
    <message>
        <source>No Extractable Subtitle or Chapter Marks</source>
        <translation>No hay subtítulos ni marcas de capítulo que extraer</translation>
    </message>
    <message>
        <source>Reload Chapter Marks</source>
        <translation>Volver a cargar las marcas de capítulo</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Volver a cargar los subtítulos</translation>
    </message>
    <message>
        <source>Fix Single Chapter Mark Time</source>
        <translation>Fijar solo una marca de capítulo</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Fijar solo una línea de subtítulo</translation>
    </message>
    <message>
        <source>Delete Chapter Mark</source>
        <translation>Eliminar la marca de capítulo</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Chapter Marks</source>
        <translation>
            <numerusform>Eliminar %n marca de capítulo</numerusform>
            <numerusform>Eliminar %n marcas de capítulo</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Eliminar la línea de subtítulo</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Subtitle Lines</source>
        <translation>
            <numerusform>Eliminar %n línea de subtítulo</numerusform>
            <numerusform>Eliminar %n líneas de subtítulo</numerusform>
        </translation>
    </message>
    <message>
        <source>Add Chapter Mark</source>
        <translation>Añadir una marca de capítulo</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Añadir una línea de subtítulo</translation>
    </message>
    <message>
        <source>Exit &quot;Tap2Sync&quot; Mode</source>
        <translation>Salir del modo «Tap2Sync»</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Entrar en el modo «Tap2Sync»</translation>
    </message>
    <message>
        <source>Minimum is bigger than Maximum</source>
        <translation>El mínimo es mayor que el máximo</translation>
    </message>
    <message>
        <source>Overwrite Chaper Marks File?</source>
        <translation>¿Sobrescribir el archivo de marcas de capítulo?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message>
        <source>The chapter mark file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>No se puede leer el archivo de marcas de capítulo. Probablemente está mal formado o tiene un formato poco habitual.</translation>
    </message>
    <message>
        <source>The subtitle file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>No se puede leer el archivo de subtítulos. Probablemente está mal formado o tiene un formato poco habitual.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Are you sure your want to delete &apos;%1&apos;
%2</source>
        <translation>¿Seguro que desea eliminar «%1»?
%2</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Eliminar «%1»</translation>
    </message>
    <message>
        <source>No Language</source>
        <translation>Sin idioma</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Marcas de capítulo</translation>
    </message>
    <message>
        <source>Delete Chapter Marks File</source>
        <translation>Eliminar el archivo de marcas de capítulo</translation>
    </message>
    <message>
        <source>Set Subtitle Language</source>
        <translation>Establecer el idioma de los subtítulos</translation>
    </message>
    <message>
        <source>Delete Current Language</source>
        <translation>Eliminar el idioma actual</translation>
    </message>
    <message>
        <source>Rescan Subtitles</source>
        <translation>Volver a buscar subtítulos</translation>
    </message>
    <message>
        <source>Download via Web Search</source>
        <translation>Descargar mediante búsqueda web</translation>
    </message>
    <message>
        <source>Open Existing Subtitle</source>
        <translation>Abrir subtítulos existentes</translation>
    </message>
    <message>
        <source>Add Empty Subtitle</source>
        <translation>Añadir subtítulos vacíos</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie</source>
        <translation>Incorporar los subtítulos a la película</translation>
    </message>
    <message>
        <source>Choose the language of the new subtitle file:</source>
        <translation>Elija el idioma del nuevo archivo de subtítulos:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Sin pista de audio</translation>
    </message>
    <message>
        <source>The movie “%1” could not be opened.</source>
        <translation>No se pudo abrir la película «%1».</translation>
    </message>
    <message>
        <source>No player here can play it.

%1</source>
        <translation>Ningún reproductor disponible puede reproducirla.

%1</translation>
    </message>
    <message>
        <source>Do you want to embed your subtitles into the M4V file?</source>
        <translation>¿Desea incorporar sus subtítulos al archivo M4V?</translation>
    </message>
    <message>
        <source>Open Embedding Options</source>
        <translation>Abrir las opciones de incorporación</translation>
    </message>
    <message>
        <source>Don&apos;t Embed Subtitles</source>
        <translation>No incorporar los subtítulos</translation>
    </message>
    <message>
        <source>How to use &quot;Tap2Sync&quot;</source>
        <translation>Cómo usar «Tap2Sync»</translation>
    </message>
    <message>
        <source>Tap2Sync let&apos;s you quickly sync a full video by watching it. Whenever you hear the current subtitle instantly press space. It will fix that subtitle and move to the next.</source>
        <translation>Tap2Sync le permite sincronizar rápidamente un vídeo completo mientras lo ve. Cuando oiga la línea de subtítulo actual, pulse de inmediato la barra espaciadora. La línea quedará fijada y se pasará a la siguiente.</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>No volver a mostrar este mensaje</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin Tap2Sync</comment>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Typing</source>
        <translation>Escritura</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forzado</translation>
    </message>
    <message>
        <source>This change leaves the lines after it no room before the next anchor.</source>
        <translation>Este cambio no deja espacio a las líneas siguientes antes de la próxima ancla.</translation>
    </message>
    <message>
        <source>It was taken back. Choose an earlier time, or remove the anchor after it.</source>
        <translation>Se ha deshecho. Elija un tiempo anterior o quite el ancla que viene después.</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Recover unsaved changes to %1 from %2?</source>
        <translation>¿Recuperar los cambios no guardados de %1 del %2?</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Recuperar los cambios no guardados</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Reemplazar todo</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>Añadir línea</translation>
    </message>
    <message>
        <source>Delete Line</source>
        <translation>Eliminar línea</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Lines</source>
        <translation>
            <numerusform>Eliminar %n línea</numerusform>
            <numerusform>Eliminar %n líneas</numerusform>
        </translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Ajustar duraciones</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>Fijar</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>Fix Single Line</source>
        <translation>Fijar solo una línea</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Tiempo de inicio</translation>
    </message>
</context>
<context>
    <name>CueListEditor</name>
    <message>
        <source>Change</source>
        <translation>Cambio</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Deshacer %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Rehacer %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
</context>
<context>
    <name>CueTableModel</name>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forzado</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Anchor: a fix does not move this line</source>
        <translation>Ancla: fijar no mueve esta línea</translation>
    </message>
    <message>
        <source>Starts %1 s before the line before it ends</source>
        <translation>Empieza %1 s antes de que termine la línea anterior</translation>
    </message>
    <message>
        <source>Only %1 s after the line before it (less than two frames)</source>
        <translation>Solo %1 s después de la línea anterior (menos de dos fotogramas)</translation>
    </message>
    <message>
        <source>Faster than the limit of %1 characters per second</source>
        <translation>Más rápido que el límite de %1 caracteres por segundo</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Ancla</translation>
    </message>
    <message>
        <source>Anchors: lines a fix does not move</source>
        <translation>Anclas: líneas que fijar no mueve</translation>
    </message>
    <message>
        <source>Reading speed in characters per second</source>
        <translation>Velocidad de lectura en caracteres por segundo</translation>
    </message>
    <message>
        <source>End</source>
        <comment>end time of a line</comment>
        <translation>Fin</translation>
    </message>
    <message>
        <source>CPS</source>
        <comment>characters per second, a column title</comment>
        <translation>car./s</translation>
    </message>
</context>
<context>
    <name>CueTableView</name>
    <message>
        <source>Subtitle lines</source>
        <translation>Líneas de subtítulos</translation>
    </message>
</context>
<context>
    <name>EmbedOptionsDialog</name>
    <message>
        <source>Embedding Options</source>
        <translation>Opciones de incorporación</translation>
    </message>
    <message>
        <source>Embed Subtitles into “%1”</source>
        <translation>Incorporar los subtítulos a «%1»</translation>
    </message>
    <message>
        <source>The ticked tracks go into a new movie, “%1”, with the movie&apos;s picture and sound. When it is complete it takes the movie&apos;s place, and the original movie is kept beside it.</source>
        <translation>Las pistas marcadas pasan, junto con la imagen y el sonido de la película, a una película nueva, «%1». Cuando está completa, ocupa el lugar de la película, y la película original se conserva a su lado.</translation>
    </message>
    <message>
        <source>Embed</source>
        <translation>Incorporar</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Origen</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Marcas de capítulo</translation>
    </message>
    <message>
        <source>There are no subtitle files beside the movie and no text tracks in it.</source>
        <translation>No hay archivos de subtítulos junto a la película ni pistas de texto en ella.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>File beside the movie</source>
        <translation>Archivo junto a la película</translation>
    </message>
    <message>
        <source>Track in the movie</source>
        <translation>Pista de la película</translation>
    </message>
</context>
<context>
    <name>FixPanel</name>
    <message>
        <source>The pending shift of the current line; the ring fills with a shift of a tenth of the movie</source>
        <translation>El desplazamiento pendiente de la línea actual; el anillo se llena con un décimo de la película</translation>
    </message>
    <message>
        <source>Left: the lines between the fixed lines as they are, the current one in yellow. Right: where the fix puts them, the current one in red. Red all over: outside the fixed lines, nothing would move.</source>
        <translation>Izquierda: las líneas entre las líneas fijadas tal como están, la actual en amarillo. Derecha: dónde las pone la corrección, la actual en rojo. Todo en rojo: fuera de las líneas fijadas, nada se movería.</translation>
    </message>
    <message>
        <source>Fix: the lines between the nearest fixed lines stretch to follow the current one</source>
        <translation>Fijar: las líneas entre las líneas fijadas más cercanas se estiran para seguir a la actual</translation>
    </message>
    <message>
        <source>Shift: the lines between the nearest fixed lines move by the same amount (hold Shift)</source>
        <translation>Desplazar: las líneas entre las líneas fijadas más cercanas se mueven lo mismo (mantener Mayús)</translation>
    </message>
    <message>
        <source>Single: only the current line moves (hold Alt)</source>
        <translation>Sola: solo se mueve la línea actual (mantener Alt)</translation>
    </message>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Sola</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fijar</translation>
    </message>
    <message>
        <source>Select a line to fix its start.</source>
        <translation>Seleccione una línea para corregir su inicio.</translation>
    </message>
    <message>
        <source>Press space the moment you hear the line; Escape stops.</source>
        <translation>Pulse espacio en cuanto oiga la línea; Esc termina.</translation>
    </message>
    <message>
        <source>Outside the fixed lines around it: nothing would move.</source>
        <translation>Fuera de las líneas fijadas que la rodean: nada se movería.</translation>
    </message>
    <message>
        <source>Only this line moves, by %1.</source>
        <translation>Solo se mueve esta línea, %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n lines, up to the nearest fixed lines, move by %1 together.</source>
        <translation>
            <numerusform>%n línea, hasta las líneas fijadas más cercanas, se mueve %1.</numerusform>
            <numerusform>%n líneas, hasta las líneas fijadas más cercanas, se mueven juntas %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This line moves by %1; the lines up to the nearest fixed lines stretch with it (%n in all).</source>
        <translation>
            <numerusform>Esta línea se mueve %1; las líneas hasta las líneas fijadas más cercanas se estiran con ella (%n en total).</numerusform>
            <numerusform>Esta línea se mueve %1; las líneas hasta las líneas fijadas más cercanas se estiran con ella (%n en total).</numerusform>
        </translation>
    </message>
    <message>
        <source>typed, Return applies</source>
        <translation>escrito, Intro aplica</translation>
    </message>
</context>
<context>
    <name>FolderPermissions</name>
    <message>
        <source>To work with subtitle files we need your permission to write in to the folder your movie is in.
Please Open this folder in the upcoming window. (Make sure you have write permission for the folder.)</source>
        <translation>Para trabajar con archivos de subtítulos, Captora necesita permiso de escritura en la carpeta donde está su película.
Abra esa carpeta en la ventana que aparecerá a continuación. (Asegúrese de tener permiso de escritura en ella.)</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Entendido</translation>
    </message>
    <message>
        <source>Deny Access</source>
        <translation>Denegar el acceso</translation>
    </message>
</context>
<context>
    <name>MovieServices</name>
    <message>
        <source>Extract Subtitles</source>
        <translation>Extraer los subtítulos</translation>
    </message>
    <message numerus="yes">
        <source>%n track(s) could not be read completely.</source>
        <translation>
            <numerusform>No se pudo leer completa %n pista.</numerusform>
            <numerusform>No se pudieron leer completas %n pistas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaybackAids</name>
    <message>
        <source>Set End</source>
        <translation>Fijar el final</translation>
    </message>
</context>
<context>
    <name>PlaybackMenu</name>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Reproducción</translation>
    </message>
    <message>
        <source>Play Current Line</source>
        <translation>Reproducir la línea actual</translation>
    </message>
    <message>
        <source>Loop Current Line</source>
        <translation>Repetir la línea actual en bucle</translation>
    </message>
    <message>
        <source>Play from Half a Second Before</source>
        <translation>Reproducir desde medio segundo antes</translation>
    </message>
    <message>
        <source>%1× Speed</source>
        <translation>Velocidad %1×</translation>
    </message>
    <message>
        <source>Set Start to Playing Time</source>
        <translation>Poner el inicio en el tiempo de reproducción</translation>
    </message>
    <message>
        <source>Set End to Playing Time</source>
        <translation>Poner el final en el tiempo de reproducción</translation>
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
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Subtitle Files</source>
        <translation>Archivos de subtítulos</translation>
    </message>
    <message>
        <source>Read files in:</source>
        <translation>Leer los archivos en:</translation>
    </message>
    <message>
        <source>“Automatic” recognises the encoding of each file.</source>
        <translation>«Automática» reconoce la codificación de cada archivo.</translation>
    </message>
    <message>
        <source>Same as for reading</source>
        <translation>Igual que para leer</translation>
    </message>
    <message>
        <source>Export in:</source>
        <translation>Exportar en:</translation>
    </message>
    <message>
        <source>The export window starts with this encoding
and remembers what you choose there.</source>
        <translation>La ventana de exportación empieza con esta codificación
y recuerda lo que elija en ella.</translation>
    </message>
    <message>
        <source>Interface Language</source>
        <translation>Idioma de la interfaz</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Idioma:</translation>
    </message>
    <message>
        <source>List languages without their region</source>
        <translation>Mostrar los idiomas sin su región</translation>
    </message>
    <message>
        <source>A new interface language applies the next time Captora starts.
The language also decides which subtitle file of a movie opens first.</source>
        <translation>Un nuevo idioma de la interfaz se aplica la próxima vez que se inicie Captora.
El idioma también decide qué archivo de subtítulos de una película se abre primero.</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Sincronización</translation>
    </message>
    <message>
        <source>Tap2Sync rewinds by:</source>
        <translation>Tap2Sync retrocede:</translation>
    </message>
    <message>
        <source>Tap2Sync reaction time:</source>
        <translation>Tiempo de reacción de Tap2Sync:</translation>
    </message>
    <message>
        <source>A tap fixes the line at the playing time
minus your reaction time.</source>
        <translation>Una pulsación fija la línea en el tiempo de reproducción
menos su tiempo de reacción.</translation>
    </message>
    <message>
        <source> characters per second</source>
        <translation> caracteres por segundo</translation>
    </message>
    <message>
        <source>Reading speed limit:</source>
        <translation>Límite de velocidad de lectura:</translation>
    </message>
    <message>
        <source>Saving and Playing</source>
        <translation>Guardado y reproducción</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> segundos</translation>
    </message>
    <message>
        <source>Autosave every:</source>
        <translation>Guardar automáticamente cada:</translation>
    </message>
    <message>
        <source>libmpv, then libVLC</source>
        <translation>libmpv y luego libVLC</translation>
    </message>
    <message>
        <source>libVLC, then libmpv</source>
        <translation>libVLC y luego libmpv</translation>
    </message>
    <message>
        <source>Play movies with:</source>
        <translation>Reproducir películas con:</translation>
    </message>
    <message>
        <source>Subtitles can be embedded into and extracted from movies that libmpv plays.
The player applies to the next movie you open.</source>
        <translation>Los subtítulos se pueden incorporar a las películas que reproduce libmpv y extraer de ellas.
El reproductor se aplica a la próxima película que abra.</translation>
    </message>
    <message>
        <source>Snap fixes to the start of speech</source>
        <translation>Ajustar las correcciones al inicio del habla</translation>
    </message>
    <message>
        <source>Snap within:</source>
        <translation>Ajustar dentro de:</translation>
    </message>
    <message>
        <source>A fix, a tap or a dragged start moves to speech that starts this close.
Hold the Meta (Super) key to fix at the time as it is.</source>
        <translation>Una corrección, una pulsación o un inicio arrastrado se mueve al habla que empieza así de cerca.
Mantenga pulsada la tecla Meta (Super) para corregir en el instante exacto.</translation>
    </message>
    <message>
        <source>Hear 5.1 sound on its centre channel (dialogue)</source>
        <translation>Escuchar el sonido 5.1 en su canal central (diálogos)</translation>
    </message>
    <message>
        <source>The timeline&apos;s waveform and speech come from the channel films keep their dialogue on.</source>
        <translation>La forma de onda y el habla de la línea de tiempo vienen del canal en el que las películas llevan los diálogos.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Tasks</source>
        <translation>Tareas</translation>
    </message>
    <message>
        <source>No tasks</source>
        <translation>No hay tareas</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Quitar las terminadas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Open the folder of the file this task wrote</source>
        <translation>Abrir la carpeta del archivo que escribió esta tarea</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>En espera</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fallida</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminada</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelada</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>Trabajando…</translation>
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
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Five frames</source>
        <translation>Cinco fotogramas</translation>
    </message>
    <message>
        <source>One frame</source>
        <translation>Un fotograma</translation>
    </message>
    <message>
        <source>Show the subtitle over the movie</source>
        <translation>Mostrar los subtítulos sobre la película</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Case-sensitive search</source>
        <translation>Distinguir mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Reemplazar por</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Reemplazar todo</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forzado</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>The times the current line&apos;s start may be fixed between</source>
        <translation>El intervalo en el que puede fijarse el inicio de la línea actual</translation>
    </message>
    <message>
        <source>Files (%1)</source>
        <translation>Archivos (%1)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Open Movie…</source>
        <translation>Abrir película…</translation>
    </message>
    <message>
        <source>Open Subtitle…</source>
        <translation>Abrir subtítulos…</translation>
    </message>
    <message>
        <source>New Subtitle…</source>
        <translation>Subtítulos nuevos…</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Guardar los subtítulos</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportar…</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Volver a cargar los subtítulos</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie…</source>
        <translation>Incorporar los subtítulos a la película…</translation>
    </message>
    <message>
        <source>Extract Subtitles</source>
        <translation>Extraer los subtítulos</translation>
    </message>
    <message>
        <source>Download via Web Search…</source>
        <translation>Descargar mediante búsqueda web…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Añadir una línea de subtítulo</translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Eliminar la línea de subtítulo</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Next Line</source>
        <translation>Línea siguiente</translation>
    </message>
    <message>
        <source>Previous Line</source>
        <translation>Línea anterior</translation>
    </message>
    <message>
        <source>Adjust Durations…</source>
        <translation>Ajustar duraciones…</translation>
    </message>
    <message>
        <source>Add Subtitle Language…</source>
        <translation>Añadir idioma de subtítulos…</translation>
    </message>
    <message>
        <source>&amp;Chapter Marks</source>
        <translation>&amp;Marcas de capítulo</translation>
    </message>
    <message>
        <source>Edit Chapter Marks</source>
        <translation>Editar las marcas de capítulo</translation>
    </message>
    <message>
        <source>Convert Chapter Marks to Subtitle</source>
        <translation>Convertir las marcas de capítulo en subtítulos</translation>
    </message>
    <message>
        <source>&amp;Timing</source>
        <translation>&amp;Sincronización</translation>
    </message>
    <message>
        <source>Fix Subtitle Start</source>
        <translation>Fijar el inicio del subtítulo</translation>
    </message>
    <message>
        <source>Shift Subtitles</source>
        <translation>Desplazar los subtítulos</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Fijar solo una línea de subtítulo</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Entrar en el modo «Tap2Sync»</translation>
    </message>
    <message>
        <source>&amp;Movie</source>
        <translation>&amp;Película</translation>
    </message>
    <message>
        <source>One Frame Back</source>
        <translation>Un fotograma atrás</translation>
    </message>
    <message>
        <source>One Frame Forward</source>
        <translation>Un fotograma adelante</translation>
    </message>
    <message>
        <source>Five Frames Back</source>
        <translation>Cinco fotogramas atrás</translation>
    </message>
    <message>
        <source>Five Frames Forward</source>
        <translation>Cinco fotogramas adelante</translation>
    </message>
    <message>
        <source>Audio Track</source>
        <translation>Pista de audio</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Sin pista de audio</translation>
    </message>
    <message>
        <source>No Subtitle</source>
        <translation>Sin subtítulos</translation>
    </message>
    <message>
        <source>Windows line breaks</source>
        <translation>Saltos de línea de Windows</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Encoding:</source>
        <translation>Codificación:</translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Ajustar duraciones</translation>
    </message>
    <message>
        <source>Seconds per character:</source>
        <translation>Segundos por carácter:</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>Mínimo:</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>Máximo:</translation>
    </message>
    <message>
        <source>Gap:</source>
        <translation>Separación:</translation>
    </message>
    <message>
        <source>Only selected lines</source>
        <translation>Solo las líneas seleccionadas</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin adjusting</comment>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>Show Timeline</source>
        <translation>Mostrar la línea de tiempo</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Show Whole Movie</source>
        <translation>Mostrar toda la película</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Reproducir o pausar</translation>
    </message>
    <message>
        <source>Five frames back</source>
        <translation>Cinco fotogramas atrás</translation>
    </message>
    <message>
        <source>One frame back</source>
        <translation>Un fotograma atrás</translation>
    </message>
    <message>
        <source>One frame forward</source>
        <translation>Un fotograma adelante</translation>
    </message>
    <message>
        <source>Five frames forward</source>
        <translation>Cinco fotogramas adelante</translation>
    </message>
    <message>
        <source>Playing position</source>
        <translation>Posición de reproducción</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Tiempo de reproducción</translation>
    </message>
    <message>
        <source>Subtitle language</source>
        <translation>Idioma de los subtítulos</translation>
    </message>
    <message>
        <source>No line changed</source>
        <translation>Ninguna línea cambiada</translation>
    </message>
    <message>
        <source>Replaced in 1 line</source>
        <translation>Reemplazado en 1 línea</translation>
    </message>
    <message numerus="yes">
        <source>Replaced in %n lines</source>
        <translation>
            <numerusform>Reemplazado en %n línea</numerusform>
            <numerusform>Reemplazado en %n líneas</numerusform>
        </translation>
    </message>
    <message>
        <source>Start time of the line</source>
        <translation>Inicio de la línea</translation>
    </message>
    <message>
        <source>Duration of the line</source>
        <translation>Duración de la línea</translation>
    </message>
    <message>
        <source>Text of the line</source>
        <translation>Texto de la línea</translation>
    </message>
    <message>
        <source>Show Tutorial</source>
        <translation>Mostrar la introducción</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open Recent</source>
        <translation>Abrir reciente</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Borrar el menú</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source> or </source>
        <comment>between two keys</comment>
        <translation> o </translation>
    </message>
    <message>
        <source>Without a menu item</source>
        <translation>Sin elemento de menú</translation>
    </message>
    <message>
        <source>Hold for the fix mode Shift (the lines move by as much)</source>
        <translation>Mantener para el modo «Desplazar» (las líneas se mueven lo mismo)</translation>
    </message>
    <message>
        <source>Hold for the fix mode Single (only the current line moves)</source>
        <translation>Mantener para el modo «Sola» (solo se mueve la línea actual)</translation>
    </message>
    <message>
        <source>In Tap2Sync: fix the current line as it begins</source>
        <translation>En Tap2Sync: fijar la línea actual cuando empieza</translation>
    </message>
    <message>
        <source>Leave Tap2Sync, or leave full screen</source>
        <translation>Salir de Tap2Sync o de la pantalla completa</translation>
    </message>
    <message>
        <source>Edit the selected line&apos;s cell</source>
        <translation>Editar la celda de la línea seleccionada</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Tecla</translation>
    </message>
</context>
<context>
    <name>SubtitleSalvage</name>
    <message>
        <source>found no cue</source>
        <translation>no encontró ninguna entrada</translation>
    </message>
    <message>
        <source>found no [Events] section</source>
        <translation>no encontró ninguna sección [Events]</translation>
    </message>
    <message>
        <source>found no Start, End and Text in its Format line</source>
        <translation>no encontró Start, End y Text en su línea Format</translation>
    </message>
    <message>
        <source>found no Format line under [Events]</source>
        <translation>no encontró ninguna línea Format bajo [Events]</translation>
    </message>
    <message>
        <source>found no Dialogue line</source>
        <translation>no encontró ninguna línea Dialogue</translation>
    </message>
    <message>
        <source>No reader accepts this subtitle file.</source>
        <translation>Ningún lector acepta este archivo de subtítulos.</translation>
    </message>
    <message>
        <source>%1 stopped at line %2: “%3”</source>
        <translation>%1 se detuvo en la línea %2: «%3»</translation>
    </message>
    <message>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message numerus="yes">
        <source>Read as %1, leaving out %n line(s) it cannot place. Saving writes a clean file.</source>
        <translation>
            <numerusform>Leído como %1, omitiendo %n línea que no puede ubicar. Al guardar se escribe un archivo limpio.</numerusform>
            <numerusform>Leído como %1, omitiendo %n líneas que no puede ubicar. Al guardar se escribe un archivo limpio.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Load the %n lines that could be read</source>
        <translation>
            <numerusform>Cargar la %n línea que se pudo leer</numerusform>
            <numerusform>Cargar las %n líneas que se pudieron leer</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>TimelineAudio</name>
    <message>
        <source>No sound to show</source>
        <translation>No hay sonido que mostrar</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Drag to fix the line&apos;s start here (Meta: without snapping to speech).</source>
        <translation>Arrastre para fijar aquí el inicio de la línea (Meta: sin ajustar al habla).</translation>
    </message>
    <message>
        <source>Drag to change the line&apos;s end.</source>
        <translation>Arrastre para cambiar el final de la línea.</translation>
    </message>
    <message>
        <source>Click to go to a time, drag to scrub. Ctrl+wheel zooms, the wheel scrolls.</source>
        <translation>Haga clic para ir a un instante, arrastre para recorrer. Ctrl+rueda amplía, la rueda desplaza.</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Hora de fin</translation>
    </message>
</context>
<context>
    <name>TutorialOverlay</name>
    <message>
        <source>Three things to know</source>
        <translation>Tres cosas que saber</translation>
    </message>
    <message>
        <source>Click a line to go there.</source>
        <translation>Haga clic en una línea para ir a ella.</translation>
    </message>
    <message>
        <source>The movie jumps to the line&apos;s start. Alt-click selects it without moving the movie.</source>
        <translation>La película salta al inicio de la línea. Alt-clic la selecciona sin mover la película.</translation>
    </message>
    <message>
        <source>Press the fix key (%1) when you hear it.</source>
        <translation>Pulse la tecla de corrección (%1) cuando la oiga.</translation>
    </message>
    <message>
        <source>The line starts at that moment, and the lines up to the nearest fixed lines follow. The strip beside the fix button shows where they will go before you press it.</source>
        <translation>La línea empieza en ese momento y las líneas hasta las líneas fijadas más cercanas la siguen. La franja junto al botón de corrección muestra adónde irán antes de pulsarlo.</translation>
    </message>
    <message>
        <source>Tap2Sync for a whole film.</source>
        <translation>Tap2Sync para una película entera.</translation>
    </message>
    <message>
        <source>Timing › Enter &quot;Tap2Sync&quot; Mode (%1): watch the film and press space each time a line is spoken.</source>
        <translation>Sincronización › Entrar en el modo «Tap2Sync» (%1): vea la película y pulse espacio cada vez que se diga una línea.</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>No volver a mostrar</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Entendido</translation>
    </message>
</context>
<context>
    <name>Unzipper</name>
    <message>
        <source>“%1” was not unpacked: %2</source>
        <translation>«%1» no se descomprimió: %2</translation>
    </message>
    <message>
        <source>The download is not a readable zip archive.</source>
        <translation>La descarga no es un archivo zip legible.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: it has more than %1 files.</source>
        <translation>El archivo comprimido no se descomprimió: contiene más de %1 archivos.</translation>
    </message>
    <message>
        <source>The archive is damaged and was not unpacked.</source>
        <translation>El archivo comprimido está dañado y no se descomprimió.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: its files would take more than %1 MB.</source>
        <translation>El archivo comprimido no se descomprimió: sus archivos ocuparían más de %1 MB.</translation>
    </message>
    <message>
        <source>a file of that name was unpacked already</source>
        <translation>ya se descomprimió un archivo con ese nombre</translation>
    </message>
    <message>
        <source>its data is damaged</source>
        <translation>sus datos están dañados</translation>
    </message>
    <message>
        <source>The archive could not be unpacked: %1</source>
        <translation>No se pudo descomprimir el archivo comprimido: %1</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>su nombre es demasiado largo</translation>
    </message>
    <message>
        <source>its name leads outside the folder</source>
        <translation>su nombre lleva fuera de la carpeta</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>es un enlace simbólico</translation>
    </message>
    <message>
        <source>it is protected by a password, which Captora does not support</source>
        <translation>está protegido con contraseña, algo que Captora no admite</translation>
    </message>
</context>
<context>
    <name>VHEncoding</name>
    <message>
        <source>Automatic</source>
        <translation>Automática</translation>
    </message>
    <message>
        <source>UTF-16 Big Endian</source>
        <translation>UTF-16 big-endian</translation>
    </message>
    <message>
        <source>UTF-16 Little Endian</source>
        <translation>UTF-16 little-endian</translation>
    </message>
    <message>
        <source>UTF-32 Big Endian</source>
        <translation>UTF-32 big-endian</translation>
    </message>
    <message>
        <source>UTF-32 Little Endian</source>
        <translation>UTF-32 little-endian</translation>
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
        <translation>ASCII sin pérdida</translation>
    </message>
    <message>
        <source>Chinese GB 18030</source>
        <translation>Chino GB 18030</translation>
    </message>
    <message>
        <source>Chinese Simp. (DOS)</source>
        <translation>Chino simplificado (DOS)</translation>
    </message>
    <message>
        <source>Chinese Simp. (Mac)</source>
        <translation>Chino simplificado (Mac)</translation>
    </message>
    <message>
        <source>Chinese Trad. (DOS)</source>
        <translation>Chino tradicional (DOS)</translation>
    </message>
    <message>
        <source>Chinese Trad (Mac)</source>
        <translation>Chino tradicional (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (DOS)</source>
        <translation>Cirílico (DOS)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO)</source>
        <translation>Cirílico (ISO)</translation>
    </message>
    <message>
        <source>Cyrillic (Mac)</source>
        <translation>Cirílico (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows)</source>
        <translation>Cirílico (Windows)</translation>
    </message>
    <message>
        <source>Greek (DOS)</source>
        <translation>Griego (DOS)</translation>
    </message>
    <message>
        <source>Greek (ISO)</source>
        <translation>Griego (ISO)</translation>
    </message>
    <message>
        <source>Greek (Mac)</source>
        <translation>Griego (Mac)</translation>
    </message>
    <message>
        <source>Greek (Windows)</source>
        <translation>Griego (Windows)</translation>
    </message>
    <message>
        <source>Hebrew (DOS)</source>
        <translation>Hebreo (DOS)</translation>
    </message>
    <message>
        <source>Hebrew (ISO)</source>
        <translation>Hebreo (ISO)</translation>
    </message>
    <message>
        <source>Hebrew (Mac)</source>
        <translation>Hebreo (Mac)</translation>
    </message>
    <message>
        <source>Hebrew (Windows)</source>
        <translation>Hebreo (Windows)</translation>
    </message>
    <message>
        <source>Japanese EUC</source>
        <translation>Japonés EUC</translation>
    </message>
    <message>
        <source>Japanese ISO 2022</source>
        <translation>Japonés ISO 2022</translation>
    </message>
    <message>
        <source>Japanese (DOS)</source>
        <translation>Japonés (DOS)</translation>
    </message>
    <message>
        <source>Japanese (Mac)</source>
        <translation>Japonés (Mac)</translation>
    </message>
    <message>
        <source>Japanese (Next Step)</source>
        <translation>Japonés (Next Step)</translation>
    </message>
    <message>
        <source>Korean (Mac)</source>
        <translation>Coreano (Mac)</translation>
    </message>
    <message>
        <source>Korean (Windows)</source>
        <translation>Coreano (Windows)</translation>
    </message>
</context>
<context>
    <name>VHLanguagePopUpButton</name>
    <message>
        <source>Add more languages</source>
        <translation>Añadir más idiomas</translation>
    </message>
    <message>
        <source>Captora offers the languages your desktop prefers. Add languages in your desktop&apos;s region and language settings, or list them in the LANGUAGE environment variable (for example LANGUAGE=de:fr:en), and start Captora again.</source>
        <translation>Captora ofrece los idiomas que prefiere su escritorio. Añada idiomas en la configuración de región e idioma de su escritorio o indíquelos en la variable de entorno LANGUAGE (por ejemplo LANGUAGE=de:fr:en), y vuelva a iniciar Captora.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>idioma desconocido</translation>
    </message>
    <message>
        <source>Add more languages ...</source>
        <translation>Añadir más idiomas...</translation>
    </message>
</context>
<context>
    <name>VHMovieController</name>
    <message>
        <source>Track %1</source>
        <translation>Pista %1</translation>
    </message>
    <message>
        <source>The audio track you selected may not play on your system or even make the app crash. 
Do you want to continue?</source>
        <translation>Puede que la pista de audio elegida no se reproduzca en su sistema o incluso que cierre la aplicación inesperadamente. 
¿Desea continuar?</translation>
    </message>
    <message>
        <source>Use Unsafe Audio Track</source>
        <translation>Usar la pista de audio no segura</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Subtítulos</translation>
    </message>
    <message>
        <source>Show Subtitles</source>
        <translation>Mostrar los subtítulos</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
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
        <translation>Problema con el idioma del archivo:</translation>
    </message>
    <message>
        <source>Could not open subtitle file using &apos;%1&apos; encoding. Please select a different encoding:</source>
        <translation>No se pudo abrir el archivo de subtítulos con la codificación «%1». Elija otra codificación:</translation>
    </message>
    <message>
        <source>Remember encoding as default.</source>
        <translation>Recordar la codificación como predeterminada.</translation>
    </message>
    <message>
        <source>Use Selected</source>
        <translation>Usar la seleccionada</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>VHWebSearchController</name>
    <message>
        <source>Download Subtitles via Web Search</source>
        <translation>Descargar subtítulos mediante búsqueda web</translation>
    </message>
    <message>
        <source>Movie or series name</source>
        <translation>Nombre de la película o serie</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Your Engines</source>
        <translation>Sus buscadores</translation>
    </message>
    <message>
        <source>“%1” is neither a subtitle file nor an archive; it was not downloaded.</source>
        <translation>«%1» no es un archivo de subtítulos ni un archivo comprimido; no se descargó.</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: there is no temporary folder for it.</source>
        <translation>No se pudo descargar «%1»: no hay ninguna carpeta temporal para él.</translation>
    </message>
    <message>
        <source>Downloading “%1”…</source>
        <translation>Descargando «%1»…</translation>
    </message>
    <message>
        <source>Unpacked “%1”.</source>
        <translation>«%1» descomprimido.</translation>
    </message>
    <message>
        <source>Downloaded “%1”.</source>
        <translation>«%1» descargado.</translation>
    </message>
    <message>
        <source>The download of “%1” failed: %2</source>
        <translation>Falló la descarga de «%1»: %2</translation>
    </message>
    <message>
        <source>Save RAR Archive</source>
        <translation>Guardar archivo RAR</translation>
    </message>
    <message>
        <source>RAR archives (*.rar)</source>
        <translation>Archivos RAR (*.rar)</translation>
    </message>
    <message>
        <source>The RAR archive “%1” was not saved.</source>
        <translation>El archivo RAR «%1» no se guardó.</translation>
    </message>
    <message>
        <source>The RAR archive could not be saved at “%1”: %2</source>
        <translation>No se pudo guardar el archivo RAR en «%1»: %2</translation>
    </message>
    <message>
        <source>Saved “%1”. Captora cannot unpack RAR archives: unpack it with an archive manager and open the subtitle file.</source>
        <translation>«%1» guardado. Captora no puede descomprimir archivos RAR: descomprímalo con un gestor de archivos comprimidos y abra el archivo de subtítulos.</translation>
    </message>
</context>
<context>
    <name>VLCMovieController</name>
    <message>
        <source>libVLC: the file could not be read or decoded</source>
        <translation>libVLC: no se pudo leer ni decodificar el archivo</translation>
    </message>
    <message>
        <source>libVLC: no video or audio it can play was found in the file</source>
        <translation>libVLC: no se encontró en el archivo vídeo ni audio que pueda reproducir</translation>
    </message>
</context>
<context>
    <name>WindowStatusBar</name>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Tiempo de reproducción</translation>
    </message>
    <message>
        <source>The movie&apos;s playing time</source>
        <translation>El tiempo de reproducción de la película</translation>
    </message>
    <message>
        <source>Fix mode</source>
        <translation>Modo de fijación</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Codificación</translation>
    </message>
    <message>
        <source>The encoding the subtitle file was read in</source>
        <translation>La codificación con la que se leyó el archivo de subtítulos</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Líneas</translation>
    </message>
    <message>
        <source>The number of lines in the file</source>
        <translation>El número de líneas del archivo</translation>
    </message>
    <message>
        <source>Mode: Fix</source>
        <translation>Modo: Fijar</translation>
    </message>
    <message>
        <source>Mode: Shift</source>
        <translation>Modo: Desplazar</translation>
    </message>
    <message>
        <source>Mode: Single</source>
        <translation>Modo: Sola</translation>
    </message>
    <message>
        <source>Mode: Tap2Sync</source>
        <translation>Modo: Tap2Sync</translation>
    </message>
    <message>
        <source>No line to fix</source>
        <translation>Ninguna línea que fijar</translation>
    </message>
    <message>
        <source>Fix: the lines between the anchors stretch</source>
        <translation>Fijar: las líneas entre las anclas se estiran</translation>
    </message>
    <message>
        <source>Shift: the lines between the anchors move by as much</source>
        <translation>Desplazar: las líneas entre las anclas se mueven lo mismo</translation>
    </message>
    <message>
        <source>Single: only this line moves</source>
        <translation>Sola: solo se mueve esta línea</translation>
    </message>
    <message>
        <source>Tap2Sync: tap as each line begins</source>
        <translation>Tap2Sync: pulse cuando empiece cada línea</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 línea</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <translation>
            <numerusform>%n línea</numerusform>
            <numerusform>%n líneas</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of 1 line</source>
        <translation>%1 de 1 línea</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n lines</source>
        <translation>
            <numerusform>%1 de %n línea</numerusform>
            <numerusform>%1 de %n líneas</numerusform>
        </translation>
    </message>
</context>
</TS>
