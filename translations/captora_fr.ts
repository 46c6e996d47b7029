<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CTFixButton</name>
    <message>
        <source>Shift</source>
        <comment>fix mode</comment>
        <translation>Décaler</translation>
    </message>
    <message>
        <source>Single</source>
        <comment>fix mode</comment>
        <translation>Seule</translation>
    </message>
    <message>
        <source>Tap</source>
        <comment>fix mode in Tap2Sync</comment>
        <translation>Taper</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fixer</translation>
    </message>
</context>
<context>
    <name>CTLanguage</name>
    <message>
        <source>Unknown</source>
        <comment>a language</comment>
        <translation>langue inconnue</translation>
    </message>
    <message>
        <source>%1 Subtitle</source>
        <comment>a subtitle file in a language</comment>
        <translation>Sous-titres en %1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleEmbedder</name>
    <message>
        <source>Embedding Subtitles into %1</source>
        <translation>Intégration des sous-titres dans «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Failed: %1 exists</source>
        <translation>Échec&#xa0;: %1 existe déjà</translation>
    </message>
    <message>
        <source>The movie &apos;%1&apos; is damaged: %2.
 Do you want to continue embedding what can be read?</source>
        <translation>Le film «&#xa0;%1&#xa0;» est endommagé&#xa0;: %2.
 Voulez-vous poursuivre l’intégration de ce qui peut être lu&#xa0;?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Subtitle &apos;%1&apos; cannot be embedded (file or structure broken).
 Do you want to continue embedding without this subtitle</source>
        <translation>Les sous-titres «&#xa0;%1&#xa0;» ne peuvent pas être intégrés (fichier ou structure endommagés).
 Voulez-vous poursuivre l’intégration sans ces sous-titres&#xa0;?</translation>
    </message>
    <message>
        <source>Failed: Broken Data</source>
        <translation>Échec&#xa0;: données endommagées</translation>
    </message>
    <message>
        <source>Finished embedding the file you are currently editing. We need to reload the file to avoid conflicts.</source>
        <translation>L’intégration du fichier que vous modifiez est terminée. Il doit être rechargé pour éviter les conflits.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Optimizing</source>
        <translation>Optimisation</translation>
    </message>
    <message>
        <source>Audio-Video engine gave back the following error:
%1</source>
        <translation>Le moteur audio et vidéo a renvoyé l’erreur suivante&#xa0;:
%1</translation>
    </message>
</context>
<context>
    <name>CTSubtitleExtractor</name>
    <message>
        <source>A subtitle with the name &apos;%1&apos; already exists</source>
        <translation>Des sous-titres nommés «&#xa0;%1&#xa0;» existent déjà</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Garder les deux</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Ignorer</translation>
    </message>
</context>
<context>
    <name>CTWindowController</name>
    <message>
        <source>You have unsaved changes. Do you want to save them?</source>
        <translation>Certaines modifications n’ont pas été enregistrées. Voulez-vous les enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>Save Chapter Marks</source>
        <translation>Enregistrer les marques de chapitre</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Enregistrer les sous-titres</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>Ignorer les modifications</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Chapter %1</source>
        <comment>the text of a new chapter mark</comment>
        <translation>Chapitre %1</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <comment>the text of a new subtitle line</comment>
        <translation>Sous-titre</translation>
    </message>
    <message>
        <source>Extract 1 Subtitle and Chapter Marks</source>
        <translation>Extraire 1 sous-titre et les marques de chapitre</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles and Chapter Marks</source>
        <translation>
            <numerusform>Extraire %n sous-titre et les marques de chapitre</numerusform>
            <numerusform>Extraire %n sous-titres et les marques de chapitre</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract 1 Subtitle</source>
        <translation>Extraire 1 sous-titre</translation>
    </message>
    <message numerus="yes">
        <source>Extract %n Subtitles</source>
        <translation>
            <numerusform>Extraire %n sous-titre</numerusform>
            <numerusform>Extraire %n sous-titres</numerusform>
        </translation>
    </message>
    <message>
        <source>Extract Chapter Marks</source>
        <translation>Extraire les marques de chapitre</translation>
    </message>
    <message>
        <source>No Extractable Subtitle or Chapter Marks</source>
        <translation>Aucun sous-titre ni marque de chapitre à extraire</translation>
    </message>
    <message>
        <source>Reload Chapter Marks</source>
        <translation>Recharger les marques de chapitre</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Recharger les sous-titres</translation>
    </message>
    <message>
        <source>Fix Single Chapter Mark Time</source>
        <translation>Fixer une seule marque de chapitre</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Fixer une seule ligne de sous-titre</translation>
    </message>
    <message>
        <source>Delete Chapter Mark</source>
        <translation>Supprimer la marque de chapitre</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Chapter Marks</source>
        <translation>
            <numerusform>Supprimer %n marque de chapitre</numerusform>
            <numerusform>Supprimer %n marques de chapitre</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Supprimer la ligne de sous-titre</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Subtitle Lines</source>
        <translation>
            <numerusform>Supprimer %n ligne de sous-titre</numerusform>
            <numerusform>Supprimer %n lignes de sous-titre</numerusform>
        </translation>
    </message>
    <message>
        <source>Add Chapter Mark</source>
        <translation>Ajouter une marque de chapitre</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Ajouter une ligne de sous-titre</translation>
    </message>
    <message>
        <source>Exit &quot;Tap2Sync&quot; Mode</source>
        <translation>Quitter le mode «&#xa0;Tap2Sync&#xa0;»</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Passer en mode «&#xa0;Tap2Sync&#xa0;»</translation>
    </message>
    <message>
        <source>Minimum is bigger than Maximum</source>
        <translation>Le minimum est supérieur au maximum</translation>
    </message>
    <message>
        <source>Overwrite Chaper Marks File?</source>
        <translation>Remplacer le fichier de marques de chapitre&#xa0;?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>The chapter mark file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Le fichier de marques de chapitre ne peut pas être lu. Il est sans doute mal formé ou dans un format inhabituel.</translation>
    </message>
    <message>
        <source>The subtitle file cannot be parsed. It&apos;s probably malformatted or an unusual format.</source>
        <translation>Le fichier de sous-titres ne peut pas être lu. Il est sans doute mal formé ou dans un format inhabituel.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Are you sure your want to delete &apos;%1&apos;
%2</source>
        <translation>Voulez-vous vraiment supprimer «&#xa0;%1&#xa0;»&#xa0;?
%2</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Supprimer «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>No Language</source>
        <translation>Aucune langue</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Marques de chapitre</translation>
    </message>
    <message>
        <source>Delete Chapter Marks File</source>
        <translation>Supprimer le fichier de marques de chapitre</translation>
    </message>
    <message>
        <source>Set Subtitle Language</source>
        <translation>Définir la langue des sous-titres</translation>
    </message>
    <message>
        <source>Delete Current Language</source>
        <translation>Supprimer la langue actuelle</translation>
    </message>
    <message>
        <source>Rescan Subtitles</source>
        <translation>Rechercher à nouveau les sous-titres</translation>
    </message>
    <message>
        <source>Download via Web Search</source>
        <translation>Télécharger par une recherche sur le Web</translation>
    </message>
    <message>
        <source>Open Existing Subtitle</source>
        <translation>Ouvrir des sous-titres existants</translation>
    </message>
    <message>
        <source>Add Empty Subtitle</source>
        <translation>Ajouter des sous-titres vides</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie</source>
        <translation>Intégrer les sous-titres dans le film</translation>
    </message>
    <message>
        <source>Choose the language of the new subtitle file:</source>
        <translation>Choisissez la langue du nouveau fichier de sous-titres&#xa0;:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Aucune piste audio</translation>
    </message>
    <message>
        <source>The movie “%1” could not be opened.</source>
        <translation>Le film «&#xa0;%1&#xa0;» n’a pas pu être ouvert.</translation>
    </message>
    <message>
        <source>No player here can play it.

%1</source>
        <translation>Aucun lecteur disponible ici ne peut le lire.

%1</translation>
    </message>
    <message>
        <source>Do you want to embed your subtitles into the M4V file?</source>
        <translation>Voulez-vous intégrer vos sous-titres dans le fichier M4V&#xa0;?</translation>
    </message>
    <message>
        <source>Open Embedding Options</source>
        <translation>Ouvrir les options d’intégration</translation>
    </message>
    <message>
        <source>Don&apos;t Embed Subtitles</source>
        <translation>Ne pas intégrer les sous-titres</translation>
    </message>
    <message>
        <source>How to use &quot;Tap2Sync&quot;</source>
        <translation>Comment utiliser «&#xa0;Tap2Sync&#xa0;»</translation>
    </message>
    <message>
        <source>Tap2Sync let&apos;s you quickly sync a full video by watching it. Whenever you hear the current subtitle instantly press space. It will fix that subtitle and move to the next.</source>
        <translation>Tap2Sync vous permet de synchroniser rapidement toute une vidéo en la regardant. Dès que vous entendez la ligne de sous-titre actuelle, appuyez aussitôt sur Espace. La ligne est alors fixée et la suivante est sélectionnée.</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Ne plus afficher ce message</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin Tap2Sync</comment>
        <translation>Démarrer</translation>
    </message>
</context>
<context>
    <name>CueTableModel</name>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forcé</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Début</translation>
    </message>
</context>
<context>
    <name>FolderPermissions</name>
    <message>
        <source>To work with subtitle files we need your permission to write in to the folder your movie is in.
Please Open this folder in the upcoming window. (Make sure you have write permission for the folder.)</source>
        <translation>Pour travailler sur les fichiers de sous-titres, Captora doit pouvoir écrire dans le dossier qui contient votre film.
Veuillez ouvrir ce dossier dans la fenêtre qui va s’afficher. (Vérifiez que vous avez le droit d’écrire dans ce dossier.)</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Compris</translation>
    </message>
    <message>
        <source>Deny Access</source>
        <translation>Refuser l’accès</translation>
    </message>
</context>
<context>
    <name>MovieServices</name>
    <message>
        <source>Extract Subtitles</source>
        <translation>Extraire les sous-titres</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ProjectWindow</name>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Five frames</source>
        <translation>Cinq images</translation>
    </message>
    <message>
        <source>One frame</source>
        <translation>Une image</translation>
    </message>
    <message>
        <source>Show the subtitle over the movie</source>
        <translation>Afficher les sous-titres sur le film</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Case-sensitive search</source>
        <translation>Respecter la casse</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Remplacer par</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Tout remplacer</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forcé</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>The times the current line&apos;s start may be fixed between</source>
        <translation>L’intervalle dans lequel le début de la ligne actuelle peut être fixé</translation>
    </message>
    <message>
        <source>Files (%1)</source>
        <translation>Fichiers (%1)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Open Movie…</source>
        <translation>Ouvrir un film…</translation>
    </message>
    <message>
        <source>Open Subtitle…</source>
        <translation>Ouvrir des sous-titres…</translation>
    </message>
    <message>
        <source>New Subtitle…</source>
        <translation>Nouveaux sous-titres…</translation>
    </message>
    <message>
        <source>Save Subtitle</source>
        <translation>Enregistrer les sous-titres</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exporter…</translation>
    </message>
    <message>
        <source>Reload Subtitle</source>
        <translation>Recharger les sous-titres</translation>
    </message>
    <message>
        <source>Embed Subtitles into Movie…</source>
        <translation>Intégrer les sous-titres dans le film…</translation>
    </message>
    <message>
        <source>Extract Subtitles</source>
        <translation>Extraire les sous-titres</translation>
    </message>
    <message>
        <source>Download via Web Search…</source>
        <translation>Télécharger par une recherche sur le Web…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Add Subtitle Line</source>
        <translation>Ajouter une ligne de sous-titre</translation>
    </message>
    <message>
        <source>Delete Subtitle Line</source>
        <translation>Supprimer la ligne de sous-titre</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Next Line</source>
        <translation>Ligne suivante</translation>
    </message>
    <message>
        <source>Previous Line</source>
        <translation>Ligne précédente</translation>
    </message>
    <message>
        <source>Adjust Durations…</source>
        <translation>Ajuster les durées…</translation>
    </message>
    <message>
        <source>Add Subtitle Language…</source>
        <translation>Ajouter une langue de sous-titres…</translation>
    </message>
    <message>
        <source>&amp;Chapter Marks</source>
        <translation>&amp;Marques de chapitre</translation>
    </message>
    <message>
        <source>Edit Chapter Marks</source>
        <translation>Modifier les marques de chapitre</translation>
    </message>
    <message>
        <source>Convert Chapter Marks to Subtitle</source>
        <translation>Convertir les marques de chapitre en sous-titres</translation>
    </message>
    <message>
        <source>&amp;Timing</source>
        <translation>&amp;Synchronisation</translation>
    </message>
    <message>
        <source>Fix Subtitle Start</source>
        <translation>Fixer le début du sous-titre</translation>
    </message>
    <message>
        <source>Shift Subtitles</source>
        <translation>Décaler les sous-titres</translation>
    </message>
    <message>
        <source>Fix Single Subtitle Line Time</source>
        <translation>Fixer une seule ligne de sous-titre</translation>
    </message>
    <message>
        <source>Enter &quot;Tap2Sync&quot; Mode</source>
        <translation>Passer en mode «&#xa0;Tap2Sync&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Movie</source>
        <translation>Fil&amp;m</translation>
    </message>
    <message>
        <source>One Frame Back</source>
        <translation>Une image en arrière</translation>
    </message>
    <message>
        <source>One Frame Forward</source>
        <translation>Une image en avant</translation>
    </message>
    <message>
        <source>Five Frames Back</source>
        <translation>Cinq images en arrière</translation>
    </message>
    <message>
        <source>Five Frames Forward</source>
        <translation>Cinq images en avant</translation>
    </message>
    <message>
        <source>Audio Track</source>
        <translation>Piste audio</translation>
    </message>
    <message>
        <source>No Audio Track</source>
        <translation>Aucune piste audio</translation>
    </message>
    <message>
        <source>No Subtitle</source>
        <translation>Aucun sous-titre</translation>
    </message>
    <message>
        <source>Windows line breaks</source>
        <translation>Sauts de ligne Windows</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format&#xa0;:</translation>
    </message>
    <message>
        <source>Encoding:</source>
        <translation>Encodage&#xa0;:</translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Ajuster les durées</translation>
    </message>
    <message>
        <source>Seconds per character:</source>
        <translation>Secondes par caractère&#xa0;:</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>Minimum&#xa0;:</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>Maximum&#xa0;:</translation>
    </message>
    <message>
        <source>Gap:</source>
        <translation>Intervalle&#xa0;:</translation>
    </message>
    <message>
        <source>Only selected lines</source>
        <translation>Lignes sélectionnées uniquement</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>start time of a line</comment>
        <translation>Début</translation>
    </message>
    <message>
        <source>Start</source>
        <comment>button: begin adjusting</comment>
        <translation>Démarrer</translation>
    </message>
</context>
<context>
    <name>VHEncoding</name>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>UTF-16 Big Endian</source>
        <translation>UTF-16 gros-boutiste</translation>
    </message>
    <message>
        <source>UTF-16 Little Endian</source>
        <translation>UTF-16 petit-boutiste</translation>
    </message>
    <message>
        <source>UTF-32 Big Endian</source>
        <translation>UTF-32 gros-boutiste</translation>
    </message>
    <message>
        <source>UTF-32 Little Endian</source>
        <translation>UTF-32 petit-boutiste</translation>
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
        <translation>ASCII sans perte</translation>
    </message>
    <message>
        <source>Chinese GB 18030</source>
        <translation>Chinois GB 18030</translation>
    </message>
    <message>
        <source>Chinese Simp. (DOS)</source>
        <translation>Chinois simplifié (DOS)</translation>
    </message>
    <message>
        <source>Chinese Simp. (Mac)</source>
        <translation>Chinois simplifié (Mac)</translation>
    </message>
    <message>
        <source>Chinese Trad. (DOS)</source>
        <translation>Chinois traditionnel (DOS)</translation>
    </message>
    <message>
        <source>Chinese Trad (Mac)</source>
        <translation>Chinois traditionnel (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (DOS)</source>
        <translation>Cyrillique (DOS)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO)</source>
        <translation>Cyrillique (ISO)</translation>
    </message>
    <message>
        <source>Cyrillic (Mac)</source>
        <translation>Cyrillique (Mac)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows)</source>
        <translation>Cyrillique (Windows)</translation>
    </message>
    <message>
        <source>Greek (DOS)</source>
        <translation>Grec (DOS)</translation>
    </message>
    <message>
        <source>Greek (ISO)</source>
        <translation>Grec (ISO)</translation>
    </message>
    <message>
        <source>Greek (Mac)</source>
        <translation>Grec (Mac)</translation>
    </message>
    <message>
        <source>Greek (Windows)</source>
        <translation>Grec (Windows)</translation>
    </message>
    <message>
        <source>Hebrew (DOS)</source>
        <translation>Hébreu (DOS)</translation>
    </message>
    <message>
        <source>Hebrew (ISO)</source>
        <translation>Hébreu (ISO)</translation>
    </message>
    <message>
        <source>Hebrew (Mac)</source>
        <translation>Hébreu (Mac)</translation>
    </message>
    <message>
        <source>Hebrew (Windows)</source>
        <translation>Hébreu (Windows)</translation>
    </message>
    <message>
        <source>Japanese EUC</source>
        <translation>Japonais EUC</translation>
    </message>
    <message>
        <source>Japanese ISO 2022</source>
        <translation>Japonais ISO 2022</translation>
    </message>
    <message>
        <source>Japanese (DOS)</source>
        <translation>Japonais (DOS)</translation>
    </message>
    <message>
        <source>Japanese (Mac)</source>
        <translation>Japonais (Mac)</translation>
    </message>
    <message>
        <source>Japanese (Next Step)</source>
        <translation>Japonais (Next Step)</translation>
    </message>
    <message>
        <source>Korean (Mac)</source>
        <translation>Coréen (Mac)</translation>
    </message>
    <message>
        <source>Korean (Windows)</source>
        <translation>Coréen (Windows)</translation>
    </message>
</context>
<context>
    <name>VHMovieController</name>
    <message>
        <source>Track %1</source>
        <translation>Piste %1</translation>
    </message>
    <message>
        <source>The audio track you selected may not play on your system or even make the app crash. 
Do you want to continue?</source>
        <translation>La piste audio choisie risque de ne pas être lue sur votre système, voire de faire planter l’application. 
Voulez-vous continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Use Unsafe Audio Track</source>
        <translation>Utiliser la piste audio risquée</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Sous-titres</translation>
    </message>
    <message>
        <source>Show Subtitles</source>
        <translation>Afficher les sous-titres</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>libmpv: %1</source>
        <translation>libmpv&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>VHSubtitle</name>
    <message>
        <source>File language problem:</source>
        <translation>Problème de langue du fichier&#xa0;:</translation>
    </message>
    <message>
        <source>Could not open subtitle file using &apos;%1&apos; encoding. Please select a different encoding:</source>
        <translation>Impossible d’ouvrir le fichier de sous-titres avec l’encodage «&#xa0;%1&#xa0;». Veuillez choisir un autre encodage&#xa0;:</translation>
    </message>
    <message>
        <source>Remember encoding as default.</source>
        <translation>Retenir cet encodage par défaut.</translation>
    </message>
    <message>
        <source>Use Selected</source>
        <translation>Utiliser la sélection</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>VLCMovieController</name>
    <message>
        <source>libVLC: the file could not be read or decoded</source>
        <translation>libVLC&#xa0;: le fichier n’a pas pu être lu ni décodé</translation>
    </message>
    <message>
        <source>libVLC: no video or audio it can play was found in the file</source>
        <translation>libVLC&#xa0;: aucune vidéo ni aucun son lisible dans le fichier</translation>
    </message>
</context>
</TS>
