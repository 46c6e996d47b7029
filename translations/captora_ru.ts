<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name>AboutBox</name>
    <message>
        <source>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;A subtitle editor for fixing subtitle timing against a movie.&lt;/p&gt;</source>
        <translation>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;Редактор субтитров для исправления тайминга субтитров по фильму.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Running with:</source>
        <translation>Работает с:</translation>
    </message>
</context>
<context>
    <name>CTAppDelegate</name>
    <message>
        <source>The subtitles have changed since they were embedded into the movie.</source>
        <translation>Субтитры изменились с тех пор, как были встроены в фильм.</translation>
    </message>
    <message>
        <source>Find and Replace</source>
        <translation>Найти и заменить</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Настройки…</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Окно</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Задачи</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Справка</translation>
    </message>
    <message>
        <source>Reset Messages</source>
        <translation>Сбросить сообщения</translation>
    </message>
    <message>
        <source>Show the disclaimer and the Tap2Sync explanation again</source>
        <translation>Снова показать предупреждение и объяснение Tap2Sync</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>О программе %1</translation>
    </message>
    <message>
        <source>Disclaimer</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>Studios can protect a Movie&apos;s/TV-show&apos;s dialog and translations with a copyright. For those movies/TV-shows creating or downloading a subtitle infringes copyright law.</source>
        <translation>Студии могут защищать диалоги и переводы фильмов и сериалов авторским правом. Для таких фильмов и сериалов создание или скачивание субтитров нарушает закон об авторском праве.</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Понятно</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Выйти</translation>
    </message>
    <message>
        <source>Captora is still working.</source>
        <translation>Captora ещё работает.</translation>
    </message>
    <message>
        <source>%1 has not finished. Quitting now would lose its work. Stop it and quit when it has stopped, or let it finish?</source>
        <translation>Ещё не завершено: %1. Если выйти сейчас, эта работа будет потеряна. Остановить и выйти после остановки или дать завершиться?</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Остановить и выйти</translation>
    </message>
    <message>
        <source>Keep Working</source>
        <translation>Продолжить работу</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Сочетания клавиш</translation>
    </message>
</context>
<context>
    <name>CTFixButton</name>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Сдвинуть</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Одна</translation>
    </message>
    <message>
        <source>Tap</source>
        <comment>fix mode in Tap2Sync</comment>
        <translation>Нажать</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Закрепить</translation>
    </message>
</context>
<context>
    <name>CTLanguage</name>
    <message>
        <source>Unknown</source>
        <comment>a language</comment>
        <translation>неизвестный язык</translation>
    </message>
    <message>
        <source>%1 Subtitle</source>
        <comment>a subtitle file in a language</comment>
        <translation>Субтитры: %1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleEmbedder</name>
    <message>
        <source>Embedding Subtitles into %1</source>
        <translation>Встраивание субтитров в «%1»</translation>
    </message>
    <message>
        <source>Failed: %1 exists</source>
        <translation>Ошибка: %1 уже существует</translation>
    </message>
    <message>
        <source>The movie &apos;%1&apos; is damaged: %2.
 Do you want to continue embedding what can be read?</source>
        <translation>Фильм «%1» повреждён: %2.
 Продолжить встраивание того, что удаётся прочитать?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Продолжить</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Subtitle &apos;%1&apos; cannot be embedded (file or structure broken).
 Do you want to continue embedding without this subtitle</source>
        <translation>Субтитры «%1» невозможно встроить (файл или его структура повреждены).
 Продолжить встраивание без этих субтитров?</translation>
    </message>
    <message>
        <source>Failed: Broken Data</source>
        <translation>Ошибка: данные повреждены</translation>
    </message>
    <message>
        <source>Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts.</source>
        <translation>Встраивание файла, который вы сейчас редактируете, завершено. Чтобы избежать конфликтов, файл будет загружен заново.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Optimizing</source>
        <translation>Оптимизация</translation>
    </message>
    <message>
        <source>Audio-Video engine gave back the following error:
%1</source>
        <translation>Аудио- и видеодвижок вернул следующую ошибку:
%1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleExtractor</name>
    <message>
        <source>A subtitle with the name &apos;%1&apos; already exists</source>
        <translation>Субтитры с именем «%1» уже существуют</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Заменить</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Сохранить оба</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Пропустить</translation>
    </message>
</context>
<context>
    <name>CTWindowController</name>
    <message>
        <source>You have unsaved changes. Do you want to save them?</source>
        <translation>Есть несохранённые изменения. Сохранить их?</translation>
    </message>
    <message>
        <source>Save Chapter Marks</source>
        <translation>Сохранить метки глав</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Сохранить субтитры</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>Отменить изменения</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Chapter %1</source>
        <comment>the text of a new chapter mark</comment>
        <translation>Глава %1</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <comment>the text of a new subtitle line</comment>
        <translation>Субтитр</translation>
    </message>
    <message>
        <source>Extract 1 Subtitle and Chapter Marks</source>
        <translation>Извлечь 1 субтитр и метки глав</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles and Chapter Marks</source>
        <translation>
            <numerusform>Извлечь %n субтитр и метки глав</numerusform>
            <numerusform>Извлечь %n субтитра и метки глав</numerusform>
            <numerusform>Извлечь %n субтитров и метки глав</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract 1 Subtitle</source>
        <translation>Извлечь 1 субтитр</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles</source>
        <translation>
            <numerusform>Извлечь %n субтитр</numerusform>
            <numerusform>Извлечь %n субтитра</numerusform>
            <numerusform>Извлечь %n субтитров</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract Chapter Marks</source>
        <translation>Извлечь метки глав</translation>
    </message>
    <message>
        <source>No Extractable Subtitle or Chapter Marks</source>
        <translation>Нет субтитров или меток глав для извлечения</translation>
    </message>
    <message>
        <source>Reload Chapter Marks</source>
        <translation>Перезагрузить метки глав</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Перезагрузить субтитры</translation>
    </message>
    <message>
        <source>Fix Single Chapter Mark Time</source>
        <translation>Закрепить только одну метку главы</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Закрепить только одну строку субтитров</translation>
    </message>
    <message>
        <source>Delete Chapter Mark</source>
        <translation>Удалить метку главы</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Chapter Marks</source>
        <translation>
            <numerusform>Удалить %n метку главы</numerusform>
            <numerusform>Удалить %n метки глав</numerusform>
            <numerusform>Удалить %n меток глав</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Удалить строку субтитров</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Subtitle Lines</source>
        <translation>
            <numerusform>Удалить %n строку субтитров</numerusform>
            <numerusform>Удалить %n строки субтитров</numerusform>
            <numerusform>Удалить %n строк субтитров</numerusform>
        </translation>
    </message>
    <message>
        <source>Add Chapter Mark</source>
        <translation>Добавить метку главы</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Добавить строку субтитров</translation>
    </message>
    <message>
        <source>Exit &quot;Tap2Sync&quot; Mode</source>
        <translation>Выйти из режима «Tap2Sync»</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Включить режим «Tap2Sync»</translation>
    </message>
    <message>
        <source>Minimum is bigger than Maximum</source>
        <translation>Минимум больше максимума</translation>
    </message>
    <message>
        <source>Overwrite Chaper Marks File?</source>
        <translation>Заменить файл меток глав?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Заменить</translation>
    </message>
    <message>
        <source>The chapter mark file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Не удаётся разобрать файл меток глав. Вероятно, он повреждён или записан в необычном формате.</translation>
    </message>
    <message>
        <source>The subtitle file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Не удаётся разобрать файл субтитров. Вероятно, он повреждён или записан в необычном формате.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Are you sure your want to delete &apos;%1&apos;
%2</source>
        <translation>Действительно удалить «%1»?
%2</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Удалить «%1»</translation>
    </message>
    <message>
        <source>No Language</source>
        <translation>Без языка</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Метки глав</translation>
    </message>
    <message>
        <source>Delete Chapter Marks File</source>
        <translation>Удалить файл меток глав</translation>
    </message>
    <message>
        <source>Set Subtitle Language</source>
        <translation>Задать язык субтитров</translation>
    </message>
    <message>
        <source>Delete Current Language</source>
        <translation>Удалить текущий язык</translation>
    </message>
    <message>
        <source>Rescan Subtitles</source>
        <translation>Искать субтитры заново</translation>
    </message>
    <message>
        <source>Download via Web Search</source>
        <translation>Скачать через веб-поиск</translation>
    </message>
    <message>
        <source>Open Existing Subtitle</source>
        <translation>Открыть существующие субтитры</translation>
    </message>
    <message>
        <source>Add Empty Subtitle</source>
        <translation>Добавить пустые субтитры</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie</source>
        <translation>Встроить субтитры в фильм</translation>
    </message>
    <message>
        <source>Choose the language of the new subtitle file:</source>
        <translation>Выберите язык нового файла субтитров:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Добавить</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Нет звуковой дорожки</translation>
    </message>
    <message>
        <source>The movie “%1” could not be opened.</source>
        <translation>Не удалось открыть фильм «%1».</translation>
    </message>
    <message>
        <source>No player here can play it.

%1</source>
        <translation>Ни один из доступных проигрывателей не может его воспроизвести.

%1</translation>
    </message>
    <message>
        <source>Do you want to embed your subtitles into the M4V file?</source>
        <translation>Встроить ваши субтитры в файл M4V?</translation>
    </message>
    <message>
        <source>Open Embedding Options</source>
        <translation>Открыть параметры встраивания</translation>
    </message>
    <message>
        <source>Don&apos;t Embed Subtitles</source>
        <translation>Не встраивать субтитры</translation>
    </message>
    <message>
        <source>How to use &quot;Tap2Sync&quot;</source>
        <translation>Как пользоваться «Tap2Sync»</translation>
    </message>
    <message>
        <source>Tap2Sync let&apos;s you quickly sync a full video by watching it. Whenever you hear the current subtitle instantly press space. It will fix that subtitle and move to the next.</source>
        <translation>Tap2Sync позволяет быстро синхронизировать весь фильм, просто просматривая его. Как только услышите текущую строку субтитров, сразу нажмите пробел. Строка будет закреплена, и начнётся следующая.</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Больше не показывать это сообщение</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Пуск</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin Tap2Sync</comment>
        <translation>Начать</translation>
    </message>
    <message>
        <source>Typing</source>
        <translation>Ввод текста</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Принудительный</translation>
    </message>
    <message>
        <source>This change leaves the lines after it no room before the next anchor.</source>
        <translation>После этого изменения строкам за ним не остаётся места до следующей привязки.</translation>
    </message>
    <message>
        <source>It was taken back. Choose an earlier time, or remove the anchor after it.</source>
        <translation>Изменение отменено. Выберите более раннее время или удалите следующую привязку.</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Длительность</translation>
    </message>
    <message>
        <source>Recover unsaved changes to %1 from %2?</source>
        <translation>Восстановить несохранённые изменения в %1 от %2?</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Восстановить</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Отбросить</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Восстановление несохранённых изменений</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Заменить все</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>Добавить строку</translation>
    </message>
    <message>
        <source>Delete Line</source>
        <translation>Удалить строку</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Lines</source>
        <translation>
            <numerusform>Удалить %n строку</numerusform>
            <numerusform>Удалить %n строки</numerusform>
            <numerusform>Удалить %n строк</numerusform>
        </translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Настройка длительности</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>Закрепить</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Сдвинуть</translation>
    </message>
    <message>
        <source>Fix Single Line</source>
        <translation>Закрепить только одну строку</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Время начала</translation>
    </message>
</context>
<context>
    <name>CueListEditor</name>
    <message>
        <source>Change</source>
        <translation>Изменение</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Отменить: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Повторить: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Повторить</translation>
    </message>
</context>
<context>
    <name>CueTableModel</name>
    <message>
        <source>Duration</source>
        <translation>Длительность</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Принудительный</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Начало</translation>
    </message>
    <message>
        <source>Anchor: a fix does not move this line</source>
        <translation>Якорь: закрепление не сдвигает эту строку</translation>
    </message>
    <message>
        <source>Starts %1 s before the line before it ends</source>
        <translation>Начинается за %1 с до конца предыдущей строки</translation>
    </message>
    <message>
        <source>Only %1 s after the line before it (less than two frames)</source>
        <translation>Всего %1 с после предыдущей строки (меньше двух кадров)</translation>
    </message>
    <message>
        <source>Faster than the limit of %1 characters per second</source>
        <translation>Быстрее предела в %1 символов в секунду</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Якорь</translation>
    </message>
    <message>
        <source>Anchors: lines a fix does not move</source>
        <translation>Якоря: строки, которые закрепление не сдвигает</translation>
    </message>
    <message>
        <source>Reading speed in characters per second</source>
        <translation>Скорость чтения в символах в секунду</translation>
    </message>
    <message>
        <source>End</source>
        <comment>end time of a line</comment>
        <translation>Конец</translation>
    </message>
    <message>
        <source>CPS</source>
        <comment>characters per second, a column title</comment>
        <translation>сим./с</translation>
    </message>
</context>
<context>
    <name>CueTableView</name>
    <message>
        <source>Subtitle lines</source>
        <translation>Строки субтитров</translation>
    </message>
</context>
<context>
    <name>EmbedOptionsDialog</name>
    <message>
        <source>Embedding Options</source>
        <translation>Параметры встраивания</translation>
    </message>
    <message>
        <source>Embed Subtitles into “%1”</source>
        <translation>Встроить субтитры в «%1»</translation>
    </message>
    <message>
        <source>The ticked tracks go into a new movie, “%1”, with the movie&apos;s picture and sound. When it is complete it takes the movie&apos;s place, and the original movie is kept beside it.</source>
        <translation>Отмеченные дорожки вместе с изображением и звуком фильма попадут в новый фильм «%1». Когда он будет готов, он займёт место фильма, а исходный фильм сохранится рядом.</translation>
    </message>
    <message>
        <source>Embed</source>
        <translation>Встроить</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Источник</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Расположение</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Метки глав</translation>
    </message>
    <message>
        <source>There are no subtitle files beside the movie and no text tracks in it.</source>
        <translation>Рядом с фильмом нет файлов субтитров, а в самом фильме нет текстовых дорожек.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>File beside the movie</source>
        <translation>Файл рядом с фильмом</translation>
    </message>
    <message>
        <source>Track in the movie</source>
        <translation>Дорожка в фильме</translation>
    </message>
</context>
<context>
    <name>FixPanel</name>
    <message>
        <source>The pending shift of the current line; the ring fills with a shift of a tenth of the movie</source>
        <translation>Ожидающий сдвиг текущей строки; кольцо заполняется целиком при сдвиге на десятую часть фильма</translation>
    </message>
    <message>
        <source>Left: the lines between the fixed lines as they are, the current one in yellow. Right: where the fix puts them, the current one in red. Red all over: outside the fixed lines, nothing would move.</source>
        <translation>Слева: строки между закреплёнными строками как есть, текущая жёлтым. Справа: куда их поставит исправление, текущая красным. Всё красное: вне закреплённых строк ничего не сдвинется.</translation>
    </message>
    <message>
        <source>Fix: the lines between the nearest fixed lines stretch to follow the current one</source>
        <translation>Закрепить: строки между ближайшими закреплёнными растягиваются вслед за текущей</translation>
    </message>
    <message>
        <source>Shift: the lines between the nearest fixed lines move by the same amount (hold Shift)</source>
        <translation>Сдвинуть: строки между ближайшими закреплёнными сдвигаются на ту же величину (удерживать Shift)</translation>
    </message>
    <message>
        <source>Single: only the current line moves (hold Alt)</source>
        <translation>Одна: сдвигается только текущая строка (удерживать Alt)</translation>
    </message>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Сдвинуть</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Одна</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Закрепить</translation>
    </message>
    <message>
        <source>Select a line to fix its start.</source>
        <translation>Выберите строку, чтобы исправить её начало.</translation>
    </message>
    <message>
        <source>Press space the moment you hear the line; Escape stops.</source>
        <translation>Нажмите пробел, как только услышите строку; Esc — выход.</translation>
    </message>
    <message>
        <source>Outside the fixed lines around it: nothing would move.</source>
        <translation>За пределами окружающих закреплённых строк: ничего не сдвинется.</translation>
    </message>
    <message>
        <source>Only this line moves, by %1.</source>
        <translation>Сдвигается только эта строка, на %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n lines, up to the nearest fixed lines, move by %1 together.</source>
        <translation>
            <numerusform>%n строка до ближайших закреплённых сдвигается на %1.</numerusform>
            <numerusform>%n строки до ближайших закреплённых сдвигаются вместе на %1.</numerusform>
            <numerusform>%n строк до ближайших закреплённых сдвигаются вместе на %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This line moves by %1; the lines up to the nearest fixed lines stretch with it (%n in all).</source>
        <translation>
            <numerusform>Эта строка сдвигается на %1; строки до ближайших закреплённых растягиваются вместе с ней (всего %n).</numerusform>
            <numerusform>Эта строка сдвигается на %1; строки до ближайших закреплённых растягиваются вместе с ней (всего %n).</numerusform>
            <numerusform>Эта строка сдвигается на %1; строки до ближайших закреплённых растягиваются вместе с ней (всего %n).</numerusform>
        </translation>
    </message>
    <message>
        <source>typed, Return applies</source>
        <translation>введено: Enter</translation>
    </message>
</context>
<context>
    <name>FolderPermissions</name>
    <message>
        <source>To work with subtitle files we need your permission to write in to the folder your movie is in.
Please Open this folder in the upcoming window. (Make sure you have write permission for the folder.)</source>
        <translation>Чтобы работать с файлами субтитров, Captora нужно право записи в папку, где находится ваш фильм.
Откройте эту папку в следующем окне. (Убедитесь, что у вас есть право записи в эту папку.)</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Понятно</translation>
    </message>
    <message>
        <source>Deny Access</source>
        <translation>Запретить доступ</translation>
    </message>
</context>
<context>
    <name>MovieServices</name>
    <message>
        <source>Extract Subtitles</source>
        <translation>Извлечь субтитры</translation>
    </message>
    <message numerus="yes">
        <source>%n track(s) could not be read completely.</source>
        <translation>
            <numerusform>Не удалось полностью прочитать %n дорожку.</numerusform>
            <numerusform>Не удалось полностью прочитать %n дорожки.</numerusform>
            <numerusform>Не удалось полностью прочитать %n дорожек.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaybackAids</name>
    <message>
        <source>Set End</source>
        <translation>Установка конца</translation>
    </message>
</context>
<context>
    <name>PlaybackMenu</name>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Воспроизведение</translation>
    </message>
    <message>
        <source>Play Current Line</source>
        <translation>Воспроизвести текущую строку</translation>
    </message>
    <message>
        <source>Loop Current Line</source>
        <translation>Повторять текущую строку</translation>
    </message>
    <message>
        <source>Play from Half a Second Before</source>
        <translation>Воспроизвести с полсекунды раньше</translation>
    </message>
    <message>
        <source>%1× Speed</source>
        <translation>Скорость %1×</translation>
    </message>
    <message>
        <source>Set Start to Playing Time</source>
        <translation>Начало — на время воспроизведения</translation>
    </message>
    <message>
        <source>Set End to Playing Time</source>
        <translation>Конец — на время воспроизведения</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source> s</source>
        <translation> с</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Subtitle Files</source>
        <translation>Файлы субтитров</translation>
    </message>
    <message>
        <source>Read files in:</source>
        <translation>Читать файлы в кодировке:</translation>
    </message>
    <message>
        <source>“Automatic” recognises the encoding of each file.</source>
        <translation>«Автоматически» — кодировка каждого файла определяется сама.</translation>
    </message>
    <message>
        <source>Same as for reading</source>
        <translation>Как при чтении</translation>
    </message>
    <message>
        <source>Export in:</source>
        <translation>Экспортировать в кодировке:</translation>
    </message>
    <message>
        <source>The export window starts with this encoding
and remembers what you choose there.</source>
        <translation>Окно экспорта открывается с этой кодировкой
и запоминает то, что вы в нём выберете.</translation>
    </message>
    <message>
        <source>Interface Language</source>
        <translation>Язык интерфейса</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Язык:</translation>
    </message>
    <message>
        <source>List languages without their region</source>
        <translation>Показывать языки без региона</translation>
    </message>
    <message>
        <source>A new interface language applies the next time Captora starts.
The language also decides which subtitle file of a movie opens first.</source>
        <translation>Новый язык интерфейса начнёт действовать при следующем запуске Captora.
Язык также определяет, какой файл субтитров фильма открывается первым.</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Тайминг</translation>
    </message>
    <message>
        <source>Tap2Sync rewinds by:</source>
        <translation>Tap2Sync перематывает назад на:</translation>
    </message>
    <message>
        <source>Tap2Sync reaction time:</source>
        <translation>Время реакции для Tap2Sync:</translation>
    </message>
    <message>
        <source>A tap fixes the line at the playing time
minus your reaction time.</source>
        <translation>Нажатие закрепляет строку на времени воспроизведения
за вычетом вашего времени реакции.</translation>
    </message>
    <message>
        <source> characters per second</source>
        <translation> символов в секунду</translation>
    </message>
    <message>
        <source>Reading speed limit:</source>
        <translation>Предел скорости чтения:</translation>
    </message>
    <message>
        <source>Saving and Playing</source>
        <translation>Сохранение и воспроизведение</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> с</translation>
    </message>
    <message>
        <source>Autosave every:</source>
        <translation>Автосохранение каждые:</translation>
    </message>
    <message>
        <source>libmpv, then libVLC</source>
        <translation>libmpv, затем libVLC</translation>
    </message>
    <message>
        <source>libVLC, then libmpv</source>
        <translation>libVLC, затем libmpv</translation>
    </message>
    <message>
        <source>Play movies with:</source>
        <translation>Воспроизводить фильмы через:</translation>
    </message>
    <message>
        <source>Subtitles can be embedded into and extracted from movies that libmpv plays.
The player applies to the next movie you open.</source>
        <translation>Субтитры можно встраивать в фильмы, которые воспроизводит libmpv, и извлекать из них.
Проигрыватель будет использован для следующего открытого фильма.</translation>
    </message>
    <message>
        <source>Snap fixes to the start of speech</source>
        <translation>Привязывать исправления к началу речи</translation>
    </message>
    <message>
        <source>Snap within:</source>
        <translation>Привязывать в пределах:</translation>
    </message>
    <message>
        <source>A fix, a tap or a dragged start moves to speech that starts this close.
Hold the Meta (Super) key to fix at the time as it is.</source>
        <translation>Исправление, нажатие или перетащенное начало переносится на речь, которая начинается так близко.
Удерживайте клавишу Meta (Super), чтобы исправить точно в это время.</translation>
    </message>
    <message>
        <source>Hear 5.1 sound on its centre channel (dialogue)</source>
        <translation>Брать звук 5.1 из центрального канала (диалоги)</translation>
    </message>
    <message>
        <source>The timeline&apos;s waveform and speech come from the channel films keep their dialogue on.</source>
        <translation>Осциллограмма и речь на шкале времени берутся из канала, в котором у фильмов диалоги.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Tasks</source>
        <translation>Задачи</translation>
    </message>
    <message>
        <source>No tasks</source>
        <translation>Нет задач</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Убрать завершённые</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Показать</translation>
    </message>
    <message>
        <source>Open the folder of the file this task wrote</source>
        <translation>Открыть папку файла, записанного этой задачей</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Ожидание</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Отменено</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>Выполняется…</translation>
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
        <translation>Пуск</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Five frames</source>
        <translation>Пять кадров</translation>
    </message>
    <message>
        <source>One frame</source>
        <translation>Один кадр</translation>
    </message>
    <message>
        <source>Show the subtitle over the movie</source>
        <translation>Показывать субтитры поверх фильма</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Полный экран</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Поиск</translation>
    </message>
    <message>
        <source>Case-sensitive search</source>
        <translation>С учётом регистра</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Заменить на</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Заменить все</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Принудительный</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Длительность</translation>
    </message>
    <message>
        <source>The times the current line&apos;s start may be fixed between</source>
        <translation>Интервал, в пределах которого можно закрепить начало текущей строки</translation>
    </message>
    <message>
        <source>Files (%1)</source>
        <translation>Файлы (%1)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>Open Movie…</source>
        <translation>Открыть фильм…</translation>
    </message>
    <message>
        <source>Open Subtitle…</source>
        <translation>Открыть субтитры…</translation>
    </message>
    <message>
        <source>New Subtitle…</source>
        <translation>Новые субтитры…</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Сохранить субтитры</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Экспортировать…</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Перезагрузить субтитры</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie…</source>
        <translation>Встроить субтитры в фильм…</translation>
    </message>
    <message>
        <source>Extract Subtitles</source>
        <translation>Извлечь субтитры</translation>
    </message>
    <message>
        <source>Download via Web Search…</source>
        <translation>Скачать через веб-поиск…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Выйти</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Добавить строку субтитров</translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Удалить строку субтитров</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Найти</translation>
    </message>
    <message>
        <source>Next Line</source>
        <translation>Следующая строка</translation>
    </message>
    <message>
        <source>Previous Line</source>
        <translation>Предыдущая строка</translation>
    </message>
    <message>
        <source>Adjust Durations…</source>
        <translation>Настроить длительность…</translation>
    </message>
    <message>
        <source>Add Subtitle Language…</source>
        <translation>Добавить язык субтитров…</translation>
    </message>
    <message>
        <source>&amp;Chapter Marks</source>
        <translation>&amp;Метки глав</translation>
    </message>
    <message>
        <source>Edit Chapter Marks</source>
        <translation>Редактировать метки глав</translation>
    </message>
    <message>
        <source>Convert Chapter Marks to Subtitle</source>
        <translation>Преобразовать метки глав в субтитры</translation>
    </message>
    <message>
        <source>&amp;Timing</source>
        <translation>&amp;Тайминг</translation>
    </message>
    <message>
        <source>Fix Subtitle Start</source>
        <translation>Закрепить начало субтитра</translation>
    </message>
    <message>
        <source>Shift Subtitles</source>
        <translation>Сдвинуть субтитры</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Закрепить только одну строку субтитров</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Включить режим «Tap2Sync»</translation>
    </message>
    <message>
        <source>&amp;Movie</source>
        <translation>Ф&amp;ильм</translation>
    </message>
    <message>
        <source>One Frame Back</source>
        <translation>На кадр назад</translation>
    </message>
    <message>
        <source>One Frame Forward</source>
        <translation>На кадр вперёд</translation>
    </message>
    <message>
        <source>Five Frames Back</source>
        <translation>На пять кадров назад</translation>
    </message>
    <message>
        <source>Five Frames Forward</source>
        <translation>На пять кадров вперёд</translation>
    </message>
    <message>
        <source>Audio Track</source>
        <translation>Звуковая дорожка</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Нет звуковой дорожки</translation>
    </message>
    <message>
        <source>No Subtitle</source>
        <translation>Без субтитров</translation>
    </message>
    <message>
        <source>Windows line breaks</source>
        <translation>Переводы строк Windows</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Формат:</translation>
    </message>
    <message>
        <source>Encoding:</source>
        <translation>Кодировка:</translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Настройка длительности</translation>
    </message>
    <message>
        <source>Seconds per character:</source>
        <translation>Секунд на символ:</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>Минимум:</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>Максимум:</translation>
    </message>
    <message>
        <source>Gap:</source>
        <translation>Промежуток:</translation>
    </message>
    <message>
        <source>Only selected lines</source>
        <translation>Только выбранные строки</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Начало</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin adjusting</comment>
        <translation>Начать</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Вид</translation>
    </message>
    <message>
        <source>Show Timeline</source>
        <translation>Показывать шкалу времени</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Увеличить</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Уменьшить</translation>
    </message>
    <message>
        <source>Show Whole Movie</source>
        <translation>Показать весь фильм</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Воспроизвести или приостановить</translation>
    </message>
    <message>
        <source>Five frames back</source>
        <translation>На пять кадров назад</translation>
    </message>
    <message>
        <source>One frame back</source>
        <translation>На кадр назад</translation>
    </message>
    <message>
        <source>One frame forward</source>
        <translation>На кадр вперёд</translation>
    </message>
    <message>
        <source>Five frames forward</source>
        <translation>На пять кадров вперёд</translation>
    </message>
    <message>
        <source>Playing position</source>
        <translation>Позиция воспроизведения</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Время воспроизведения</translation>
    </message>
    <message>
        <source>Subtitle language</source>
        <translation>Язык субтитров</translation>
    </message>
    <message>
        <source>No line changed</source>
        <translation>Ни одна строка не изменена</translation>
    </message>
    <message>
        <source>Replaced in 1 line</source>
        <translation>Заменено в 1 строке</translation>
    </message>
    <message numerus="yes">
        <source>Replaced in %n lines</source>
        <translation>
            <numerusform>Заменено в %n строке</numerusform>
            <numerusform>Заменено в %n строках</numerusform>
            <numerusform>Заменено в %n строках</numerusform>
        </translation>
    </message>
    <message>
        <source>Start time of the line</source>
        <translation>Начало строки</translation>
    </message>
    <message>
        <source>Duration of the line</source>
        <translation>Длительность строки</translation>
    </message>
    <message>
        <source>Text of the line</source>
        <translation>Текст строки</translation>
    </message>
    <message>
        <source>Show Tutorial</source>
        <translation>Показать введение</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open Recent</source>
        <translation>Недавние файлы</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Очистить меню</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source> or </source>
        <comment>between two keys</comment>
        <translation> или </translation>
    </message>
    <message>
        <source>Without a menu item</source>
        <translation>Без пункта меню</translation>
    </message>
    <message>
        <source>Hold for the fix mode Shift (the lines move by as much)</source>
        <translation>Удерживать для режима «Сдвинуть» (строки сдвигаются на столько же)</translation>
    </message>
    <message>
        <source>Hold for the fix mode Single (only the current line moves)</source>
        <translation>Удерживать для режима «Одна» (сдвигается только текущая строка)</translation>
    </message>
    <message>
        <source>In Tap2Sync: fix the current line as it begins</source>
        <translation>В Tap2Sync: закрепить текущую строку, когда она начинается</translation>
    </message>
    <message>
        <source>Leave Tap2Sync, or leave full screen</source>
        <translation>Выйти из Tap2Sync или из полноэкранного режима</translation>
    </message>
    <message>
        <source>Edit the selected line&apos;s cell</source>
        <translation>Изменить ячейку выбранной строки</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Сочетания клавиш</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Сочетания клавиш</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Команда</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Клавиша</translation>
    </message>
</context>
<context>
    <name>SubtitleSalvage</name>
    <message>
        <source>found no cue</source>
        <translation>не нашёл ни одной записи</translation>
    </message>
    <message>
        <source>found no [Events] section</source>
        <translation>не нашёл раздел [Events]</translation>
    </message>
    <message>
        <source>found no Start, End and Text in its Format line</source>
        <translation>не нашёл Start, End и Text в строке Format</translation>
    </message>
    <message>
        <source>found no Format line under [Events]</source>
        <translation>не нашёл строку Format в разделе [Events]</translation>
    </message>
    <message>
        <source>found no Dialogue line</source>
        <translation>не нашёл ни одной строки Dialogue</translation>
    </message>
    <message>
        <source>No reader accepts this subtitle file.</source>
        <translation>Ни одно средство чтения не принимает этот файл субтитров.</translation>
    </message>
    <message>
        <source>%1 stopped at line %2: “%3”</source>
        <translation>%1 остановился на строке %2: «%3»</translation>
    </message>
    <message>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message numerus="yes">
        <source>Read as %1, leaving out %n line(s) it cannot place. Saving writes a clean file.</source>
        <translation>
            <numerusform>Прочитано как %1, без %n строки, которую не удаётся разместить. При сохранении записывается чистый файл.</numerusform>
            <numerusform>Прочитано как %1, без %n строк, которые не удаётся разместить. При сохранении записывается чистый файл.</numerusform>
            <numerusform>Прочитано как %1, без %n строк, которые не удаётся разместить. При сохранении записывается чистый файл.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Load the %n lines that could be read</source>
        <translation>
            <numerusform>Загрузить %n прочитанную строку</numerusform>
            <numerusform>Загрузить %n прочитанные строки</numerusform>
            <numerusform>Загрузить %n прочитанных строк</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>TimelineAudio</name>
    <message>
        <source>No sound to show</source>
        <translation>Нет звука для показа</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Drag to fix the line&apos;s start here (Meta: without snapping to speech).</source>
        <translation>Перетащите, чтобы закрепить здесь начало строки (Meta: без привязки к речи).</translation>
    </message>
    <message>
        <source>Drag to change the line&apos;s end.</source>
        <translation>Перетащите, чтобы изменить конец строки.</translation>
    </message>
    <message>
        <source>Click to go to a time, drag to scrub. Ctrl+wheel zooms, the wheel scrolls.</source>
        <translation>Щелчок переходит ко времени, перетаскивание прокручивает. Ctrl+колесо меняет масштаб, колесо прокручивает.</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Время конца</translation>
    </message>
</context>
<context>
    <name>TutorialOverlay</name>
    <message>
        <source>Three things to know</source>
        <translation>Три вещи, которые нужно знать</translation>
    </message>
    <message>
        <source>Click a line to go there.</source>
        <translation>Щёлкните строку, чтобы перейти к ней.</translation>
    </message>
    <message>
        <source>The movie jumps to the line&apos;s start. Alt-click selects it without moving the movie.</source>
        <translation>Фильм переходит к началу строки. Alt-щелчок выбирает её, не перемещая фильм.</translation>
    </message>
    <message>
        <source>Press the fix key (%1) when you hear it.</source>
        <translation>Нажмите клавишу исправления (%1), когда услышите её.</translation>
    </message>
    <message>
        <source>The line starts at that moment, and the lines up to the nearest fixed lines follow. The strip beside the fix button shows where they will go before you press it.</source>
        <translation>Строка начинается в этот момент, а строки до ближайших закреплённых следуют за ней. Полоска рядом с кнопкой исправления заранее показывает, куда они сдвинутся.</translation>
    </message>
    <message>
        <source>Tap2Sync for a whole film.</source>
        <translation>Tap2Sync для целого фильма.</translation>
    </message>
    <message>
        <source>Timing › Enter &quot;Tap2Sync&quot; Mode (%1): watch the film and press space each time a line is spoken.</source>
        <translation>Тайминг › Включить режим «Tap2Sync» (%1): смотрите фильм и нажимайте пробел каждый раз, когда произносится строка.</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>Больше не показывать</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Понятно</translation>
    </message>
</context>
<context>
    <name>Unzipper</name>
    <message>
        <source>“%1” was not unpacked: %2</source>
        <translation>«%1» не распакован: %2</translation>
    </message>
    <message>
        <source>The download is not a readable zip archive.</source>
        <translation>Загруженный файл не является читаемым zip-архивом.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: it has more than %1 files.</source>
        <translation>Архив не распакован: в нём больше %1 файлов.</translation>
    </message>
    <message>
        <source>The archive is damaged and was not unpacked.</source>
        <translation>Архив повреждён и не был распакован.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: its files would take more than %1 MB.</source>
        <translation>Архив не распакован: его файлы заняли бы больше %1 МБ.</translation>
    </message>
    <message>
        <source>a file of that name was unpacked already</source>
        <translation>файл с таким именем уже был распакован</translation>
    </message>
    <message>
        <source>its data is damaged</source>
        <translation>его данные повреждены</translation>
    </message>
    <message>
        <source>The archive could not be unpacked: %1</source>
        <translation>Не удалось распаковать архив: %1</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>его имя слишком длинное</translation>
    </message>
    <message>
        <source>its name leads outside the folder</source>
        <translation>его имя ведёт за пределы папки</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>это символическая ссылка</translation>
    </message>
    <message>
        <source>it is protected by a password, which Captora does not support</source>
        <translation>он защищён паролем, а Captora это не поддерживает</translation>
    </message>
</context>
<context>
    <name>VHEncoding</name>
    <message>
        <source>Automatic</source>
        <translation>Автоматически</translation>
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
        <translation>ASCII без потерь</translation>
    </message>
    <message>
        <source>Chinese GB 18030</source>
        <translation>Китайская GB 18030</translation>
    </message>
    <message>
        <source>Chinese Simp. (DOS)</source>
        <translation>Китайская упрощённая (DOS)</translation>
    </message>
    <message>
        <source>Chinese Simp. (Mac)</source>
        <translation>Китайская упрощённая (Mac)</translation>
    </message>
    <message>
        <source>Chinese Trad. (DOS)</source>
        <translation>Китайская традиционная (DOS)</translation>
    </message>
    <message>
        <source>Chinese Trad (Mac)</source>
        <translation>Китайская традиционная (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (DOS)</source>
        <translation>Кириллица (DOS)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO)</source>
        <translation>Кириллица (ISO)</translation>
    </message>
    <message>
        <source>Cyrillic (Mac)</source>
        <translation>Кириллица (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows)</source>
        <translation>Кириллица (Windows)</translation>
    </message>
    <message>
        <source>Greek (DOS)</source>
        <translation>Греческая (DOS)</translation>
    </message>
    <message>
        <source>Greek (ISO)</source>
        <translation>Греческая (ISO)</translation>
    </message>
    <message>
        <source>Greek (Mac)</source>
        <translation>Греческая (Mac)</translation>
    </message>
    <message>
        <source>Greek (Windows)</source>
        <translation>Греческая (Windows)</translation>
    </message>
    <message>
        <source>Hebrew (DOS)</source>
        <translation>Иврит (DOS)</translation>
    </message>
    <message>
        <source>Hebrew (ISO)</source>
        <translation>Иврит (ISO)</translation>
    </message>
    <message>
        <source>Hebrew (Mac)</source>
        <translation>Иврит (Mac)</translation>
    </message>
    <message>
        <source>Hebrew (Windows)</source>
        <translation>Иврит (Windows)</translation>
    </message>
    <message>
        <source>Japanese EUC</source>
        <translation>Японская EUC</translation>
    </message>
    <message>
        <source>Japanese ISO 2022</source>
        <translation>Японская ISO 2022</translation>
    </message>
    <message>
        <source>Japanese (DOS)</source>
        <translation>Японская (DOS)</translation>
    </message>
    <message>
        <source>Japanese (Mac)</source>
        <translation>Японская (Mac)</translation>
    </message>
    <message>
        <source>Japanese (Next Step)</source>
        <translation>Японская (Next Step)</translation>
    </message>
    <message>
        <source>Korean (Mac)</source>
        <translation>Корейская (Mac)</translation>
    </message>
    <message>
        <source>Korean (Windows)</source>
        <translation>Корейская (Windows)</translation>
    </message>
</context>
<context>
    <name>VHLanguagePopUpButton</name>
    <message>
        <source>Add more languages</source>
        <translation>Добавить другие языки</translation>
    </message>
    <message>
        <source>Captora offers the languages your desktop prefers. Add languages in your desktop&apos;s region and language settings, or list them in the LANGUAGE environment variable (for example LANGUAGE=de:fr:en), and start Captora again.</source>
        <translation>Captora предлагает языки, которые предпочитает ваш рабочий стол. Добавьте языки в настройках региона и языка рабочего стола или перечислите их в переменной окружения LANGUAGE (например, LANGUAGE=de:fr:en) и перезапустите Captora.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>неизвестный язык</translation>
    </message>
    <message>
        <source>Add more languages ...</source>
        <translation>Добавить другие языки...</translation>
    </message>
</context>
<context>
    <name>VHMovieController</name>
    <message>
        <source>Track %1</source>
        <translation>Дорожка %1</translation>
    </message>
    <message>
        <source>The audio track you selected may not play on your system or even make the app crash. 
Do you want to continue?</source>
        <translation>Выбранная звуковая дорожка может не воспроизводиться в вашей системе или даже привести к сбою программы. 
Продолжить?</translation>
    </message>
    <message>
        <source>Use Unsafe Audio Track</source>
        <translation>Использовать ненадёжную дорожку</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Пуск</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Субтитры</translation>
    </message>
    <message>
        <source>Show Subtitles</source>
        <translation>Показывать субтитры</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Полный экран</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Пауза</translation>
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
        <translation>Проблема с языком файла:</translation>
    </message>
    <message>
        <source>Could not open subtitle file using &apos;%1&apos; encoding. Please select a different encoding:</source>
        <translation>Не удалось открыть файл субтитров в кодировке «%1». Выберите другую кодировку:</translation>
    </message>
    <message>
        <source>Remember encoding as default.</source>
        <translation>Запомнить кодировку по умолчанию.</translation>
    </message>
    <message>
        <source>Use Selected</source>
        <translation>Использовать выбранную</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>VHWebSearchController</name>
    <message>
        <source>Download Subtitles via Web Search</source>
        <translation>Скачать субтитры через веб-поиск</translation>
    </message>
    <message>
        <source>Movie or series name</source>
        <translation>Название фильма или сериала</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Your Engines</source>
        <translation>Ваши поисковые системы</translation>
    </message>
    <message>
        <source>“%1” is neither a subtitle file nor an archive; it was not downloaded.</source>
        <translation>«%1» не является ни файлом субтитров, ни архивом; он не был скачан.</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: there is no temporary folder for it.</source>
        <translation>Не удалось скачать «%1»: для него нет временной папки.</translation>
    </message>
    <message>
        <source>Downloading “%1”…</source>
        <translation>Скачивание «%1»…</translation>
    </message>
    <message>
        <source>Unpacked “%1”.</source>
        <translation>«%1» распакован.</translation>
    </message>
    <message>
        <source>Downloaded “%1”.</source>
        <translation>«%1» скачан.</translation>
    </message>
    <message>
        <source>The download of “%1” failed: %2</source>
        <translation>Не удалось скачать «%1»: %2</translation>
    </message>
    <message>
        <source>Save RAR Archive</source>
        <translation>Сохранить архив RAR</translation>
    </message>
    <message>
        <source>RAR archives (*.rar)</source>
        <translation>Архивы RAR (*.rar)</translation>
    </message>
    <message>
        <source>The RAR archive “%1” was not saved.</source>
        <translation>Архив RAR «%1» не был сохранён.</translation>
    </message>
    <message>
        <source>The RAR archive could not be saved at “%1”: %2</source>
        <translation>Не удалось сохранить архив RAR в «%1»: %2</translation>
    </message>
    <message>
        <source>Saved “%1”. Captora cannot unpack RAR archives: unpack it with an archive manager and open the subtitle file.</source>
        <translation>«%1» сохранён. Captora не умеет распаковывать архивы RAR: распакуйте его менеджером архивов и откройте файл субтитров.</translation>
    </message>
</context>
<context>
    <name>VLCMovieController</name>
    <message>
        <source>libVLC: the file could not be read or decoded</source>
        <translation>libVLC: не удалось прочитать или декодировать файл</translation>
    </message>
    <message>
        <source>libVLC: no video or audio it can play was found in the file</source>
        <translation>libVLC: в файле не найдено видео или звука, которые можно воспроизвести</translation>
    </message>
</context>
<context>
    <name>WindowStatusBar</name>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Время воспроизведения</translation>
    </message>
    <message>
        <source>The movie&apos;s playing time</source>
        <translation>Время воспроизведения фильма</translation>
    </message>
    <message>
        <source>Fix mode</source>
        <translation>Режим закрепления</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Кодировка</translation>
    </message>
    <message>
        <source>The encoding the subtitle file was read in</source>
        <translation>Кодировка, в которой был прочитан файл субтитров</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Строки</translation>
    </message>
    <message>
        <source>The number of lines in the file</source>
        <translation>Количество строк в файле</translation>
    </message>
    <message>
        <source>Mode: Fix</source>
        <translation>Режим: закрепить</translation>
    </message>
    <message>
        <source>Mode: Shift</source>
        <translation>Режим: сдвинуть</translation>
    </message>
    <message>
        <source>Mode: Single</source>
        <translation>Режим: одна</translation>
    </message>
    <message>
        <source>Mode: Tap2Sync</source>
        <translation>Режим: Tap2Sync</translation>
    </message>
    <message>
        <source>No line to fix</source>
        <translation>Нет строки для закрепления</translation>
    </message>
    <message>
        <source>Fix: the lines between the anchors stretch</source>
        <translation>Закрепить: строки между якорями растягиваются</translation>
    </message>
    <message>
        <source>Shift: the lines between the anchors move by as much</source>
        <translation>Сдвинуть: строки между якорями сдвигаются на столько же</translation>
    </message>
    <message>
        <source>Single: only this line moves</source>
        <translation>Одна: сдвигается только эта строка</translation>
    </message>
    <message>
        <source>Tap2Sync: tap as each line begins</source>
        <translation>Tap2Sync: нажимайте, когда начинается каждая строка</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 строка</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <translation>
            <numerusform>%n строка</numerusform>
            <numerusform>%n строки</numerusform>
            <numerusform>%n строк</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of 1 line</source>
        <translation>%1 из 1 строки</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n lines</source>
        <translation>
            <numerusform>%1 из %n строки</numerusform>
            <numerusform>%1 из %n строк</numerusform>
            <numerusform>%1 из %n строк</numerusform>
        </translation>
    </message>
</context>
</TS>
