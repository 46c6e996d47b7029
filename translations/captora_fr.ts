<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>AboutBox</name>
    <message>
        <source>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;A subtitle editor for fixing subtitle timing against a movie.&lt;/p&gt;</source>
        <translation>&lt;b&gt;%1 %2&lt;/b&gt;&lt;p&gt;Un éditeur de sous-titres pour corriger la synchronisation des sous-titres sur un film.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Running with:</source>
        <translation>Fonctionne avec :</translation>
    </message>
</context>
<context>
    <name>CTAppDelegate</name>
    <message>
        <source>The subtitles have changed since they were embedded into the movie.</source>
        <translation>Les sous-titres ont changé depuis leur intégration dans le film.</translation>
    </message>
    <message>
        <source>Find and Replace</source>
        <translation>Rechercher et remplacer</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Fe&amp;nêtre</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Tâches</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>Reset Messages</source>
        <translation>Réinitialiser les messages</translation>
    </message>
    <message>
        <source>Show the disclaimer and the Tap2Sync explanation again</source>
        <translation>Afficher de nouveau l’avertissement et l’explication de Tap2Sync</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Disclaimer</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Studios can protect a Movie&apos;s/TV-show&apos;s dialog and translations with a copyright. For those movies/TV-shows creating or downloading a subtitle infringes copyright law.</source>
        <translation>Les studios peuvent protéger les dialogues et les traductions d’un film ou d’une série par le droit d’auteur. Pour ces films et séries, créer ou télécharger des sous-titres enfreint le droit d’auteur.</translation>
    </message>
    <message>
        <source>Understood</source>
        <translation>Compris</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Captora is still working.</source>
        <translation>Captora travaille encore.</translation>
    </message>
    <message>
        <source>%1 has not finished. Quitting now would lose its work. Stop it and quit when it has stopped, or let it finish?</source>
        <translation>Pas encore terminé&#xa0;: %1. Quitter maintenant ferait perdre ce travail. Voulez-vous l’arrêter et quitter une fois qu’il est arrêté, ou le laisser se terminer&#xa0;?</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Arrêter et quitter</translation>
    </message>
    <message>
        <source>Keep Working</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
</context>
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
    <message>
        <source>Typing</source>
        <translation>Saisie</translation>
    </message>
    <message>
        <source>Forced</source>
        <translation>Forcé</translation>
    </message>
    <message>
        <source>This change leaves the lines after it no room before the next anchor.</source>
        <translation>Cette modification ne laisse plus de place aux lignes suivantes avant la prochaine ancre.</translation>
    </message>
    <message>
        <source>It was taken back. Choose an earlier time, or remove the anchor after it.</source>
        <translation>Elle a été annulée. Choisissez un temps antérieur ou supprimez l’ancre qui suit.</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Recover unsaved changes to %1 from %2?</source>
        <translation>Récupérer les modifications non enregistrées de %1 du %2&#xa0;?</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Récupérer les modifications non enregistrées</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>Tout remplacer</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>Ajouter une ligne</translation>
    </message>
    <message>
        <source>Delete Line</source>
        <translation>Supprimer la ligne</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Lines</source>
        <translation>
            <numerusform>Supprimer %n ligne</numerusform>
            <numerusform>Supprimer %n lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>Adjust Durations</source>
        <translation>Ajuster les durées</translation>
    </message>
    <message>
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>Fixer</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Décaler</translation>
    </message>
    <message>
        <source>Fix Single Line</source>
        <translation>Fixer une seule ligne</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Début</translation>
    </message>
</context>
<context>
    <name>CueListEditor</name>
    <message>
        <source>Change</source>
        <translation>Modification</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Annuler %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Rétablir %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
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
    <message>
        <source>Anchor: a fix does not move this line</source>
        <translation>Ancre : fixer ne déplace pas cette ligne</translation>
    </message>
    <message>
        <source>Starts %1 s before the line before it ends</source>
        <translation>Commence %1 s avant la fin de la ligne précédente</translation>
    </message>
    <message>
        <source>Only %1 s after the line before it (less than two frames)</source>
        <translation>Seulement %1 s après la ligne précédente (moins de deux images)</translation>
    </message>
    <message>
        <source>Faster than the limit of %1 characters per second</source>
        <translation>Plus rapide que la limite de %1 caractères par seconde</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Ancre</translation>
    </message>
    <message>
        <source>Anchors: lines a fix does not move</source>
        <translation>Ancres : lignes que fixer ne déplace pas</translation>
    </message>
    <message>
        <source>Reading speed in characters per second</source>
        <translation>Vitesse de lecture en caractères par seconde</translation>
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
        <translation>Lignes de sous-titres</translation>
    </message>
</context>
<context>
    <name>EmbedOptionsDialog</name>
    <message>
        <source>Embedding Options</source>
        <translation>Options d’intégration</translation>
    </message>
    <message>
        <source>Embed Subtitles into “%1”</source>
        <translation>Intégrer les sous-titres dans «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The ticked tracks go into a new movie, “%1”, with the movie&apos;s picture and sound. When it is complete it takes the movie&apos;s place, and the original movie is kept beside it.</source>
        <translation>Les pistes cochées sont placées, avec l’image et le son du film, dans un nouveau film, «&#xa0;%1&#xa0;». Une fois terminé, il prend la place du film, et le film d’origine est conservé à côté.</translation>
    </message>
    <message>
        <source>Embed</source>
        <translation>Intégrer</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Chapter Marks</source>
        <translation>Marques de chapitre</translation>
    </message>
    <message>
        <source>There are no subtitle files beside the movie and no text tracks in it.</source>
        <translation>Il n’y a aucun fichier de sous-titres à côté du film ni aucune piste de texte dans le film.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>File beside the movie</source>
        <translation>Fichier à côté du film</translation>
    </message>
    <message>
        <source>Track in the movie</source>
        <translation>Piste du film</translation>
    </message>
</context>
<context>
    <name>FixPanel</name>
    <message>
        <source>The pending shift of the current line; the ring fills with a shift of a tenth of the movie</source>
        <translation>Le décalage en attente de la ligne actuelle ; l’anneau est plein pour un dixième de la durée du film</translation>
    </message>
    <message>
        <source>Left: the lines between the fixed lines as they are, the current one in yellow. Right: where the fix puts them, the current one in red. Red all over: outside the fixed lines, nothing would move.</source>
        <translation>À gauche : les lignes entre les lignes fixées telles qu’elles sont, l’actuelle en jaune. À droite : là où la correction les place, l’actuelle en rouge. Tout en rouge : hors des lignes fixées, rien ne bougerait.</translation>
    </message>
    <message>
        <source>Fix: the lines between the nearest fixed lines stretch to follow the current one</source>
        <translation>Fixer : les lignes entre les lignes fixées les plus proches s’étirent pour suivre l’actuelle</translation>
    </message>
    <message>
        <source>Shift: the lines between the nearest fixed lines move by the same amount (hold Shift)</source>
        <translation>Décaler : les lignes entre les lignes fixées les plus proches bougent d’autant (maintenir Maj)</translation>
    </message>
    <message>
        <source>Single: only the current line moves (hold Alt)</source>
        <translation>Seule : seule la ligne actuelle bouge (maintenir Alt)</translation>
    </message>
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
        <source>Tap2Sync</source>
        <translation>Tap2Sync</translation>
    </message>
    <message>
        <source>Fix</source>
        <comment>fix mode</comment>
        <translation>Fixer</translation>
    </message>
    <message>
        <source>Select a line to fix its start.</source>
        <translation>Choisissez une ligne pour corriger son début.</translation>
    </message>
    <message>
        <source>Press space the moment you hear the line; Escape stops.</source>
        <translation>Appuyez sur Espace dès que vous entendez la ligne ; Échap arrête.</translation>
    </message>
    <message>
        <source>Outside the fixed lines around it: nothing would move.</source>
        <translation>Hors des lignes fixées qui l’entourent : rien ne bougerait.</translation>
    </message>
    <message>
        <source>Only this line moves, by %1.</source>
        <translation>Seule cette ligne bouge, de %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n lines, up to the nearest fixed lines, move by %1 together.</source>
        <translation>
            <numerusform>%n ligne, jusqu’aux lignes fixées les plus proches, bouge de %1.</numerusform>
            <numerusform>%n lignes, jusqu’aux lignes fixées les plus proches, bougent ensemble de %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This line moves by %1; the lines up to the nearest fixed lines stretch with it (%n in all).</source>
        <translation>
            <numerusform>Cette ligne bouge de %1 ; les lignes jusqu’aux lignes fixées les plus proches s’étirent avec elle (%n en tout).</numerusform>
            <numerusform>Cette ligne bouge de %1 ; les lignes jusqu’aux lignes fixées les plus proches s’étirent avec elle (%n en tout).</numerusform>
        </translation>
    </message>
    <message>
        <source>typed, Return applies</source>
        <translation>saisi, Entrée applique</translation>
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
    <message numerus="yes">
        <source>%n track(s) could not be read completely.</source>
        <translation>
            <numerusform>%n piste n’a pas pu être lue entièrement.</numerusform>
            <numerusform>%n pistes n’ont pas pu être lues entièrement.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaybackAids</name>
    <message>
        <source>Set End</source>
        <translation>Définir la fin</translation>
    </message>
</context>
<context>
    <name>PlaybackMenu</name>
    <message>
        <source>&amp;Playback</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>Play Current Line</source>
        <translation>Lire la ligne actuelle</translation>
    </message>
    <message>
        <source>Loop Current Line</source>
        <translation>Lire la ligne actuelle en boucle</translation>
    </message>
    <message>
        <source>Play from Half a Second Before</source>
        <translation>Lire depuis une demi-seconde avant</translation>
    </message>
    <message>
        <source>%1× Speed</source>
        <translation>Vitesse %1×</translation>
    </message>
    <message>
        <source>Set Start to Playing Time</source>
        <translation>Placer le début au temps de lecture</translation>
    </message>
    <message>
        <source>Set End to Playing Time</source>
        <translation>Placer la fin au temps de lecture</translation>
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
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Subtitle Files</source>
        <translation>Fichiers de sous-titres</translation>
    </message>
    <message>
        <source>Read files in:</source>
        <translation>Lire les fichiers en&#xa0;:</translation>
    </message>
    <message>
        <source>“Automatic” recognises the encoding of each file.</source>
        <translation>«&#xa0;Automatique&#xa0;» reconnaît l’encodage de chaque fichier.</translation>
    </message>
    <message>
        <source>Same as for reading</source>
        <translation>Comme pour la lecture</translation>
    </message>
    <message>
        <source>Export in:</source>
        <translation>Exporter en&#xa0;:</translation>
    </message>
    <message>
        <source>The export window starts with this encoding
and remembers what you choose there.</source>
        <translation>La fenêtre d’exportation démarre avec cet encodage
et retient ce que vous y choisissez.</translation>
    </message>
    <message>
        <source>Interface Language</source>
        <translation>Langue de l’interface</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Langue&#xa0;:</translation>
    </message>
    <message>
        <source>List languages without their region</source>
        <translation>Lister les langues sans leur région</translation>
    </message>
    <message>
        <source>A new interface language applies the next time Captora starts.
The language also decides which subtitle file of a movie opens first.</source>
        <translation>Une nouvelle langue d’interface s’applique au prochain démarrage de Captora.
La langue détermine aussi quel fichier de sous-titres d’un film s’ouvre en premier.</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>Tap2Sync rewinds by:</source>
        <translation>Tap2Sync recule de&#xa0;:</translation>
    </message>
    <message>
        <source>Tap2Sync reaction time:</source>
        <translation>Temps de réaction pour Tap2Sync&#xa0;:</translation>
    </message>
    <message>
        <source>A tap fixes the line at the playing time
minus your reaction time.</source>
        <translation>Un appui fixe la ligne au temps de lecture
moins votre temps de réaction.</translation>
    </message>
    <message>
        <source> characters per second</source>
        <translation> caractères par seconde</translation>
    </message>
    <message>
        <source>Reading speed limit:</source>
        <translation>Vitesse de lecture maximale&#xa0;:</translation>
    </message>
    <message>
        <source>Saving and Playing</source>
        <translation>Enregistrement et lecture</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> secondes</translation>
    </message>
    <message>
        <source>Autosave every:</source>
        <translation>Enregistrer automatiquement toutes les&#xa0;:</translation>
    </message>
    <message>
        <source>libmpv, then libVLC</source>
        <translation>libmpv, puis libVLC</translation>
    </message>
    <message>
        <source>libVLC, then libmpv</source>
        <translation>libVLC, puis libmpv</translation>
    </message>
    <message>
        <source>Play movies with:</source>
        <translation>Lire les films avec&#xa0;:</translation>
    </message>
    <message>
        <source>Subtitles can be embedded into and extracted from movies that libmpv plays.
The player applies to the next movie you open.</source>
        <translation>Les sous-titres peuvent être intégrés aux films que libmpv lit, et extraits de ceux-ci.
Le lecteur s’applique au prochain film que vous ouvrez.</translation>
    </message>
    <message>
        <source>Snap fixes to the start of speech</source>
        <translation>Caler les corrections sur le début de la parole</translation>
    </message>
    <message>
        <source>Snap within:</source>
        <translation>Caler dans un rayon de :</translation>
    </message>
    <message>
        <source>A fix, a tap or a dragged start moves to speech that starts this close.
Hold the Meta (Super) key to fix at the time as it is.</source>
        <translation>Une correction, une frappe ou un début glissé va à la parole qui commence aussi près.
Maintenez la touche Méta (Super) pour corriger à l’instant exact.</translation>
    </message>
    <message>
        <source>Hear 5.1 sound on its centre channel (dialogue)</source>
        <translation>Écouter le son 5.1 sur sa voie centrale (dialogues)</translation>
    </message>
    <message>
        <source>The timeline&apos;s waveform and speech come from the channel films keep their dialogue on.</source>
        <translation>La forme d’onde et la parole de la frise viennent de la voie qui porte les dialogues des films.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Tasks</source>
        <translation>Tâches</translation>
    </message>
    <message>
        <source>No tasks</source>
        <translation>Aucune tâche</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Effacer les tâches terminées</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Open the folder of the file this task wrote</source>
        <translation>Ouvrir le dossier du fichier écrit par cette tâche</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminée</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulée</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>En cours…</translation>
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
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Show Timeline</source>
        <translation>Afficher la frise</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Show Whole Movie</source>
        <translation>Afficher tout le film</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Lire ou mettre en pause</translation>
    </message>
    <message>
        <source>Five frames back</source>
        <translation>Cinq images en arrière</translation>
    </message>
    <message>
        <source>One frame back</source>
        <translation>Une image en arrière</translation>
    </message>
    <message>
        <source>One frame forward</source>
        <translation>Une image en avant</translation>
    </message>
    <message>
        <source>Five frames forward</source>
        <translation>Cinq images en avant</translation>
    </message>
    <message>
        <source>Playing position</source>
        <translation>Position de lecture</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Temps de lecture</translation>
    </message>
    <message>
        <source>Subtitle language</source>
        <translation>Langue des sous-titres</translation>
    </message>
    <message>
        <source>No line changed</source>
        <translation>Aucune ligne modifiée</translation>
    </message>
    <message>
        <source>Replaced in 1 line</source>
        <translation>Remplacé dans 1 ligne</translation>
    </message>
    <message numerus="yes">
        <source>Replaced in %n lines</source>
        <translation>
            <numerusform>Remplacé dans %n ligne</numerusform>
            <numerusform>Remplacé dans %n lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>Start time of the line</source>
        <translation>Début de la ligne</translation>
    </message>
    <message>
        <source>Duration of the line</source>
        <translation>Durée de la ligne</translation>
    </message>
    <message>
        <source>Text of the line</source>
        <translation>Texte de la ligne</translation>
    </message>
    <message>
        <source>Show Tutorial</source>
        <translation>Afficher la présentation</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open Recent</source>
        <translation>Ouvrir un fichier récent</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Effacer le menu</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source> or </source>
        <comment>between two keys</comment>
        <translation> ou </translation>
    </message>
    <message>
        <source>Without a menu item</source>
        <translation>Sans élément de menu</translation>
    </message>
    <message>
        <source>Hold for the fix mode Shift (the lines move by as much)</source>
        <translation>Maintenir pour le mode « Décaler » (les lignes bougent d’autant)</translation>
    </message>
    <message>
        <source>Hold for the fix mode Single (only the current line moves)</source>
        <translation>Maintenir pour le mode « Seule » (seule la ligne en cours bouge)</translation>
    </message>
    <message>
        <source>In Tap2Sync: fix the current line as it begins</source>
        <translation>En Tap2Sync : fixer la ligne en cours quand elle commence</translation>
    </message>
    <message>
        <source>Leave Tap2Sync, or leave full screen</source>
        <translation>Quitter Tap2Sync ou le plein écran</translation>
    </message>
    <message>
        <source>Edit the selected line&apos;s cell</source>
        <translation>Modifier la cellule de la ligne sélectionnée</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Touche</translation>
    </message>
</context>
<context>
    <name>SubtitleSalvage</name>
    <message>
        <source>found no cue</source>
        <translation>n’a trouvé aucune entrée</translation>
    </message>
    <message>
        <source>found no [Events] section</source>
        <translation>n’a trouvé aucune section [Events]</translation>
    </message>
    <message>
        <source>found no Start, End and Text in its Format line</source>
        <translation>n’a trouvé ni Start, ni End, ni Text dans sa ligne Format</translation>
    </message>
    <message>
        <source>found no Format line under [Events]</source>
        <translation>n’a trouvé aucune ligne Format sous [Events]</translation>
    </message>
    <message>
        <source>found no Dialogue line</source>
        <translation>n’a trouvé aucune ligne Dialogue</translation>
    </message>
    <message>
        <source>No reader accepts this subtitle file.</source>
        <translation>Aucun lecteur n’accepte ce fichier de sous-titres.</translation>
    </message>
    <message>
        <source>%1 stopped at line %2: “%3”</source>
        <translation>%1 s’est arrêté à la ligne %2&#xa0;: «&#xa0;%3&#xa0;»</translation>
    </message>
    <message>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message numerus="yes">
        <source>Read as %1, leaving out %n line(s) it cannot place. Saving writes a clean file.</source>
        <translation>
            <numerusform>Lu comme %1, sans %n ligne impossible à placer. L’enregistrement écrit un fichier propre.</numerusform>
            <numerusform>Lu comme %1, sans %n lignes impossibles à placer. L’enregistrement écrit un fichier propre.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Load the %n lines that could be read</source>
        <translation>
            <numerusform>Charger la %n ligne lisible</numerusform>
            <numerusform>Charger les %n lignes lisibles</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>TimelineAudio</name>
    <message>
        <source>No sound to show</source>
        <translation>Aucun son à afficher</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Drag to fix the line&apos;s start here (Meta: without snapping to speech).</source>
        <translation>Glisser pour caler le début de la ligne ici (Méta : sans caler sur la parole).</translation>
    </message>
    <message>
        <source>Drag to change the line&apos;s end.</source>
        <translation>Glisser pour changer la fin de la ligne.</translation>
    </message>
    <message>
        <source>Click to go to a time, drag to scrub. Ctrl+wheel zooms, the wheel scrolls.</source>
        <translation>Cliquer va à un instant, glisser fait défiler. Ctrl+molette zoome, la molette fait défiler.</translation>
    </message>
    <message>
        <source>End Time</source>
        <translation>Heure de fin</translation>
    </message>
</context>
<context>
    <name>TutorialOverlay</name>
    <message>
        <source>Three things to know</source>
        <translation>Trois choses à savoir</translation>
    </message>
    <message>
        <source>Click a line to go there.</source>
        <translation>Cliquez sur une ligne pour y aller.</translation>
    </message>
    <message>
        <source>The movie jumps to the line&apos;s start. Alt-click selects it without moving the movie.</source>
        <translation>Le film saute au début de la ligne. Alt-clic la sélectionne sans déplacer le film.</translation>
    </message>
    <message>
        <source>Press the fix key (%1) when you hear it.</source>
        <translation>Appuyez sur la touche de correction (%1) quand vous l’entendez.</translation>
    </message>
    <message>
        <source>The line starts at that moment, and the lines up to the nearest fixed lines follow. The strip beside the fix button shows where they will go before you press it.</source>
        <translation>La ligne commence à cet instant, et les lignes jusqu’aux lignes fixées les plus proches suivent. La bande à côté du bouton de correction montre où elles iront avant que vous appuyiez.</translation>
    </message>
    <message>
        <source>Tap2Sync for a whole film.</source>
        <translation>Tap2Sync pour un film entier.</translation>
    </message>
    <message>
        <source>Timing › Enter &quot;Tap2Sync&quot; Mode (%1): watch the film and press space each time a line is spoken.</source>
        <translation>Synchronisation › Passer en mode «&#xa0;Tap2Sync&#xa0;» (%1) : regardez le film et appuyez sur Espace chaque fois qu’une ligne est dite.</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>Ne plus afficher</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>Compris</translation>
    </message>
</context>
<context>
    <name>Unzipper</name>
    <message>
        <source>“%1” was not unpacked: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas été décompressé&#xa0;: %2</translation>
    </message>
    <message>
        <source>The download is not a readable zip archive.</source>
        <translation>Le téléchargement n’est pas une archive zip lisible.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: it has more than %1 files.</source>
        <translation>L’archive n’a pas été décompressée&#xa0;: elle contient plus de %1 fichiers.</translation>
    </message>
    <message>
        <source>The archive is damaged and was not unpacked.</source>
        <translation>L’archive est endommagée et n’a pas été décompressée.</translation>
    </message>
    <message>
        <source>The archive was not unpacked: its files would take more than %1 MB.</source>
        <translation>L’archive n’a pas été décompressée&#xa0;: ses fichiers occuperaient plus de %1 Mo.</translation>
    </message>
    <message>
        <source>a file of that name was unpacked already</source>
        <translation>un fichier de ce nom a déjà été décompressé</translation>
    </message>
    <message>
        <source>its data is damaged</source>
        <translation>ses données sont endommagées</translation>
    </message>
    <message>
        <source>The archive could not be unpacked: %1</source>
        <translation>L’archive n’a pas pu être décompressée&#xa0;: %1</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>son nom est trop long</translation>
    </message>
    <message>
        <source>its name leads outside the folder</source>
        <translation>son nom mène hors du dossier</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>c’est un lien symbolique</translation>
    </message>
    <message>
        <source>it is protected by a password, which Captora does not support</source>
        <translation>il est protégé par un mot de passe, ce que Captora ne prend pas en charge</translation>
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
    <name>VHLanguagePopUpButton</name>
    <message>
        <source>Add more languages</source>
        <translation>Ajouter d’autres langues</translation>
    </message>
    <message>
        <source>Captora offers the languages your desktop prefers. Add languages in your desktop&apos;s region and language settings, or list them in the LANGUAGE environment variable (for example LANGUAGE=de:fr:en), and start Captora again.</source>
        <translation>Captora propose les langues que votre bureau préfère. Ajoutez des langues dans les réglages de région et de langue de votre bureau, ou indiquez-les dans la variable d’environnement LANGUAGE (par exemple LANGUAGE=de:fr:en), puis redémarrez Captora.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>langue inconnue</translation>
    </message>
    <message>
        <source>Add more languages ...</source>
        <translation>Ajouter d’autres langues...</translation>
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
    <name>VHWebSearchController</name>
    <message>
        <source>Download Subtitles via Web Search</source>
        <translation>Télécharger des sous-titres par une recherche sur le Web</translation>
    </message>
    <message>
        <source>Movie or series name</source>
        <translation>Nom du film ou de la série</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Your Engines</source>
        <translation>Vos moteurs</translation>
    </message>
    <message>
        <source>“%1” is neither a subtitle file nor an archive; it was not downloaded.</source>
        <translation>«&#xa0;%1&#xa0;» n’est ni un fichier de sous-titres ni une archive&#xa0;; il n’a pas été téléchargé.</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded: there is no temporary folder for it.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être téléchargé&#xa0;: il n’y a pas de dossier temporaire pour lui.</translation>
    </message>
    <message>
        <source>Downloading “%1”…</source>
        <translation>Téléchargement de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>Unpacked “%1”.</source>
        <translation>«&#xa0;%1&#xa0;» décompressé.</translation>
    </message>
    <message>
        <source>Downloaded “%1”.</source>
        <translation>«&#xa0;%1&#xa0;» téléchargé.</translation>
    </message>
    <message>
        <source>The download of “%1” failed: %2</source>
        <translation>Le téléchargement de «&#xa0;%1&#xa0;» a échoué&#xa0;: %2</translation>
    </message>
    <message>
        <source>Save RAR Archive</source>
        <translation>Enregistrer l’archive RAR</translation>
    </message>
    <message>
        <source>RAR archives (*.rar)</source>
        <translation>Archives RAR (*.rar)</translation>
    </message>
    <message>
        <source>The RAR archive “%1” was not saved.</source>
        <translation>L’archive RAR «&#xa0;%1&#xa0;» n’a pas été enregistrée.</translation>
    </message>
    <message>
        <source>The RAR archive could not be saved at “%1”: %2</source>
        <translation>L’archive RAR n’a pas pu être enregistrée à l’emplacement «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Saved “%1”. Captora cannot unpack RAR archives: unpack it with an archive manager and open the subtitle file.</source>
        <translation>«&#xa0;%1&#xa0;» enregistré. Captora ne peut pas décompresser les archives RAR&#xa0;: décompressez-la avec un gestionnaire d’archives et ouvrez le fichier de sous-titres.</translation>
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
<context>
    <name>WindowStatusBar</name>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Playing time</source>
        <translation>Temps de lecture</translation>
    </message>
    <message>
        <source>The movie&apos;s playing time</source>
        <translation>Le temps de lecture du film</translation>
    </message>
    <message>
        <source>Fix mode</source>
        <translation>Mode de fixation</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Encodage</translation>
    </message>
    <message>
        <source>The encoding the subtitle file was read in</source>
        <translation>L’encodage dans lequel le fichier de sous-titres a été lu</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>The number of lines in the file</source>
        <translation>Le nombre de lignes du fichier</translation>
    </message>
    <message>
        <source>Mode: Fix</source>
        <translation>Mode : Fixer</translation>
    </message>
    <message>
        <source>Mode: Shift</source>
        <translation>Mode : Décaler</translation>
    </message>
    <message>
        <source>Mode: Single</source>
        <translation>Mode : Seule</translation>
    </message>
    <message>
        <source>Mode: Tap2Sync</source>
        <translation>Mode : Tap2Sync</translation>
    </message>
    <message>
        <source>No line to fix</source>
        <translation>Aucune ligne à fixer</translation>
    </message>
    <message>
        <source>Fix: the lines between the anchors stretch</source>
        <translation>Fixer : les lignes entre les ancres s’étirent</translation>
    </message>
    <message>
        <source>Shift: the lines between the anchors move by as much</source>
        <translation>Décaler : les lignes entre les ancres bougent d’autant</translation>
    </message>
    <message>
        <source>Single: only this line moves</source>
        <translation>Seule : seule cette ligne bouge</translation>
    </message>
    <message>
        <source>Tap2Sync: tap as each line begins</source>
        <translation>Tap2Sync : tapez au début de chaque ligne</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 ligne</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <translation>
            <numerusform>%n ligne</numerusform>
            <numerusform>%n lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of 1 line</source>
        <translation>%1 sur 1 ligne</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n lines</source>
        <translation>
            <numerusform>%1 sur %n ligne</numerusform>
            <numerusform>%1 sur %n lignes</numerusform>
        </translation>
    </message>
</context>
</TS>
