<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CanvasAccessible</name>
    <message>
        <source>Canvas without a curve</source>
        <translation>Canevas sans courbe</translation>
    </message>
    <message>
        <source>Canvas, curve %1</source>
        <translation>Canevas, courbe %1</translation>
    </message>
    <message>
        <source>%1 points, %2 selected</source>
        <translation>%1 points, %2 sélectionnés</translation>
    </message>
    <message>
        <source>Formula %1</source>
        <translation>Formule %1</translation>
    </message>
</context>
<context>
    <name>CanvasEdit</name>
    <message>
        <source>%1 curves</source>
        <translation>%1 courbes</translation>
    </message>
</context>
<context>
    <name>CanvasFunctionBase</name>
    <message>
        <source>Variable %1 not found</source>
        <translation>Variable %1 introuvable</translation>
    </message>
    <message>
        <source>Unmatched parenthesis</source>
        <translation>Parenthèse non appariée</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Erreur inconnue</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The formula of %1 can&apos;t be read any more:
%2</source>
        <translation>La formule de %1 ne peut plus être lue&#xa0;:
%2</translation>
    </message>
    <message>
        <source>Delete the formula of %1</source>
        <translation>Supprimer la formule de %1</translation>
    </message>
    <message>
        <source>Show the spline of %1</source>
        <translation>Afficher la spline de %1</translation>
    </message>
    <message>
        <source>Show the formula of %1</source>
        <translation>Afficher la formule de %1</translation>
    </message>
    <message>
        <source>Reset all curves</source>
        <translation>Réinitialiser toutes les courbes</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>Réinitialiser %1</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <translation>Erreur de syntaxe</translation>
    </message>
    <message>
        <source>Enter the formula of %1</source>
        <translation>Saisir la formule de %1</translation>
    </message>
    <message>
        <source>Cyclical dependency</source>
        <translation>Dépendance cyclique</translation>
    </message>
    <message>
        <source>Cyclical dependency has been found for d-var %1 </source>
        <translation>Une dépendance cyclique a été trouvée pour la variable dépendante %1</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>Charger %1</translation>
    </message>
    <message>
        <source>Change the start behaviour of %1</source>
        <translation>Modifier le comportement initial de %1</translation>
    </message>
    <message>
        <source>Change the end behaviour of %1</source>
        <translation>Modifier le comportement final de %1</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Supprimer un point de %1</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>Supprimer %1 points de %2</translation>
    </message>
    <message>
        <source>Add a point to %1</source>
        <translation>Ajouter un point à %1</translation>
    </message>
    <message>
        <source>Change the type of points</source>
        <translation>Modifier le type de points</translation>
    </message>
    <message>
        <source>Delete points</source>
        <translation>Supprimer des points</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Mettre à l&apos;échelle un point de %1</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>Mettre à l&apos;échelle %1 points de %2</translation>
    </message>
    <message>
        <source>Pan a point of %1</source>
        <translation>Décaler un point de %1</translation>
    </message>
    <message>
        <source>Pan %1 points of %2</source>
        <translation>Décaler %1 points de %2</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 est verrouillée.</translation>
    </message>
    <message>
        <source>The application has locked %1.</source>
        <translation>L&apos;application a verrouillé %1.</translation>
    </message>
    <message>
        <source>The application hides %1.</source>
        <translation>L&apos;application masque %1.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 est masquée.</translation>
    </message>
    <message>
        <source>%1 is seen alone.</source>
        <translation>%1 est seule visible.</translation>
    </message>
</context>
<context>
    <name>CanvasHands</name>
    <message>
        <source>Move a point of %1</source>
        <translation>Déplacer un point de %1</translation>
    </message>
    <message>
        <source>Change a tangent of %1</source>
        <translation>Modifier une tangente de %1</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>Déplacer %1 points de %2</translation>
    </message>
</context>
<context>
    <name>CanvasPicture</name>
    <message>
        <source>Drop the name of a curve on the list to edit it here</source>
        <translation>Déposez le nom d&apos;une courbe sur la liste pour la modifier ici</translation>
    </message>
    <message>
        <source>Double-click to add a point</source>
        <translation>Double-cliquez pour ajouter un point</translation>
    </message>
    <message>
        <source>Slope %1</source>
        <translation>Pente %1</translation>
    </message>
    <message>
        <source>Own scale</source>
        <translation>Échelle propre</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Verrouillée</translation>
    </message>
    <message>
        <source>All curves</source>
        <translation>Toutes les courbes</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Magnétisme</translation>
    </message>
    <message>
        <source>All points of this curve lie outside the range that is set under &quot;Options&quot;</source>
        <translation>Tous les points de cette courbe sont hors de la plage réglée sous « Options »</translation>
    </message>
</context>
<context>
    <name>ControlMenu</name>
    <message>
        <source>Create key</source>
        <translation>Créer une clé</translation>
    </message>
    <message>
        <source>Delete key</source>
        <translation>Supprimer la clé</translation>
    </message>
</context>
<context>
    <name>ControlMenu2</name>
    <message>
        <source>Remove from editing list</source>
        <translation>Retirer de la liste d&apos;édition</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>Changer la couleur</translation>
    </message>
</context>
<context>
    <name>ControlSplineNode</name>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Modifier le type d&apos;un point de %1</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Modifier le type de %1 points de %2</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Canvas</source>
        <translation>Canevas</translation>
    </message>
    <message>
        <source>Horizontal axis</source>
        <translation>Axe horizontal</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Curves</source>
        <translation>Courbes</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source> Fit </source>
        <translation> Ajuster </translation>
    </message>
    <message>
        <source> Fit H </source>
        <translation> Ajuster H </translation>
    </message>
    <message>
        <source> Fit V </source>
        <translation> Ajuster V </translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Décaler</translation>
    </message>
    <message>
        <source>Unary functions</source>
        <translation>Fonctions unaires</translation>
    </message>
    <message>
        <source>Binary functions</source>
        <translation>Fonctions binaires</translation>
    </message>
    <message>
        <source>Ternary functions</source>
        <translation>Fonctions ternaires</translation>
    </message>
    <message>
        <source>I vars</source>
        <translation>Var. indép.</translation>
    </message>
    <message>
        <source>D vars</source>
        <translation>Var. dép.</translation>
    </message>
    <message>
        <source>Frame:</source>
        <translation>Image&#xa0;:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Temps&#xa0;:</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Ceci est l&apos;expression analysée</translation>
    </message>
    <message>
        <source>Reset All Checked Curves</source>
        <translation>Réinitialiser toutes les courbes cochées</translation>
    </message>
    <message>
        <source>Reset curve</source>
        <translation>Réinitialiser la courbe</translation>
    </message>
    <message>
        <source>Load curve</source>
        <translation>Charger une courbe</translation>
    </message>
    <message>
        <source>Save curve</source>
        <translation>Enregistrer la courbe</translation>
    </message>
    <message>
        <source>Set Range</source>
        <translation>Définir l&apos;étendue</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>Réinitialiser la vue</translation>
    </message>
    <message>
        <source>Load image</source>
        <translation>Charger une image</translation>
    </message>
    <message>
        <source>Clear image</source>
        <translation>Effacer l&apos;image</translation>
    </message>
    <message>
        <source>Fit View</source>
        <translation>Ajuster la vue</translation>
    </message>
    <message>
        <source>Fit Horizontal View</source>
        <translation>Ajuster la vue horizontale</translation>
    </message>
    <message>
        <source>Fit Vertical View</source>
        <translation>Ajuster la vue verticale</translation>
    </message>
    <message>
        <source>Scale selection</source>
        <translation>Mettre la sélection à l&apos;échelle</translation>
    </message>
    <message>
        <source>Pan selection</source>
        <translation>Décaler la sélection</translation>
    </message>
    <message>
        <source>Show time</source>
        <translation>Afficher le temps</translation>
    </message>
    <message>
        <source>Show frames</source>
        <translation>Afficher les images</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Zéro</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Constante</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Boucle avec décalage</translation>
    </message>
    <message>
        <source>Follow tangent</source>
        <translation>Suivre la tangente</translation>
    </message>
    <message>
        <source>Start Node Behaviour</source>
        <translation>Comportement au nœud de début</translation>
    </message>
    <message>
        <source>Last Node Behaviour</source>
        <translation>Comportement au nœud de fin</translation>
    </message>
    <message>
        <source>Horizontal axis mode</source>
        <translation>Mode de l&apos;axe horizontal</translation>
    </message>
    <message>
        <source>Reset all the checked curves</source>
        <translation>Réinitialise toutes les courbes cochées</translation>
    </message>
    <message>
        <source>Reset the current editing curve</source>
        <translation>Réinitialise la courbe en cours</translation>
    </message>
    <message>
        <source>Open previously saved curve</source>
        <translation>Ouvre une courbe enregistrée précédemment</translation>
    </message>
    <message>
        <source>Save the current curve</source>
        <translation>Enregistre la courbe en cours</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>Ctrl+l</source>
        <translation>Ctrl+l</translation>
    </message>
    <message>
        <source>Ctrl+s</source>
        <translation>Ctrl+s</translation>
    </message>
    <message>
        <source>Alt+s</source>
        <translation>Alt+s</translation>
    </message>
    <message>
        <source>Alt+i</source>
        <translation>Alt+i</translation>
    </message>
    <message>
        <source>Alt+c</source>
        <translation>Alt+c</translation>
    </message>
    <message>
        <source>Alt+h</source>
        <translation>Alt+h</translation>
    </message>
    <message>
        <source>Alt+v</source>
        <translation>Alt+v</translation>
    </message>
    <message>
        <source>Alt+t</source>
        <translation>Alt+t</translation>
    </message>
    <message>
        <source>Alt+f</source>
        <translation>Alt+f</translation>
    </message>
    <message>
        <source>Resets, loads and saves curves</source>
        <translation>Réinitialise, charge et enregistre des courbes</translation>
    </message>
    <message>
        <source>Chooses the current curve among those on the canvas</source>
        <translation>Choisit la courbe en cours parmi celles du canevas</translation>
    </message>
    <message>
        <source>Sets the view, the background image and the curve outside its nodes</source>
        <translation>Règle la vue, l&apos;image de fond et la courbe hors de ses nœuds</translation>
    </message>
    <message>
        <source>Takes edits back, and works on the selected points and the view</source>
        <translation>Annule des modifications et agit sur les points sélectionnés et la vue</translation>
    </message>
    <message>
        <source>Makes the expression the argument of a function</source>
        <translation>Fait de l&apos;expression l&apos;argument d&apos;une fonction</translation>
    </message>
    <message>
        <source>Joins the expression with a second operand</source>
        <translation>Combine l&apos;expression avec un second opérande</translation>
    </message>
    <message>
        <source>Makes the expression one of the two that a condition chooses from</source>
        <translation>Fait de l&apos;expression l&apos;une des deux entre lesquelles une condition choisit</translation>
    </message>
    <message>
        <source>Inserts the time or the frame number</source>
        <translation>Insère le temps ou le numéro d&apos;image</translation>
    </message>
    <message>
        <source>Inserts the value of another curve</source>
        <translation>Insère la valeur d&apos;une autre courbe</translation>
    </message>
    <message>
        <source>Shows the whole current curve</source>
        <translation>Affiche toute la courbe en cours</translation>
    </message>
    <message>
        <source>Shows all times of the current curve</source>
        <translation>Affiche tous les temps de la courbe en cours</translation>
    </message>
    <message>
        <source>Shows all values of the current curve</source>
        <translation>Affiche toutes les valeurs de la courbe en cours</translation>
    </message>
    <message>
        <source>Scales the selected points by two factors</source>
        <translation>Met les points sélectionnés à l&apos;échelle selon deux facteurs</translation>
    </message>
    <message>
        <source>Moves the selected points by two distances</source>
        <translation>Décale les points sélectionnés de deux distances</translation>
    </message>
    <message>
        <source>Time or frame at the mouse</source>
        <translation>Temps ou image à la souris</translation>
    </message>
    <message>
        <source>Time or frame number at the mouse</source>
        <translation>Temps ou numéro d&apos;image à la souris</translation>
    </message>
    <message>
        <source>Value at the mouse</source>
        <translation>Valeur à la souris</translation>
    </message>
    <message>
        <source>Value of the curve</source>
        <translation>Valeur de la courbe</translation>
    </message>
    <message>
        <source>Value of the current curve at the time of the mouse</source>
        <translation>Valeur de la courbe en cours au temps de la souris</translation>
    </message>
    <message>
        <source>%1 holds no curve that can be read.</source>
        <translation>%1 ne contient aucune courbe lisible.</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existe déjà.
Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>The curve could not be saved to %1.</source>
        <translation>La courbe n&apos;a pas pu être enregistrée dans %1.</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Souris</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>This expression is too long for the line and can&apos;t be edited here</source>
        <translation>Cette expression est trop longue pour la ligne et ne peut pas être modifiée ici</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>L&apos;expression apparaît ici</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Rétablir&#xa0;: %1</translation>
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
        <source>The curve was saved to %1, but is perhaps not yet on the disk.</source>
        <translation>La courbe a été enregistrée dans %1, mais n&apos;est peut-être pas encore sur le disque.</translation>
    </message>
    <message>
        <source>%1 holds no picture that can be read.</source>
        <translation>%1 ne contient aucune image lisible.</translation>
    </message>
    <message>
        <source>Edit a curve</source>
        <translation>Modifier une courbe</translation>
    </message>
    <message>
        <source>There is no curve of the name &quot;%1&quot;.</source>
        <translation>Il n&apos;y a aucune courbe du nom de « %1 ».</translation>
    </message>
    <message>
        <source>Formula</source>
        <translation>Formule</translation>
    </message>
    <message>
        <source>The line has room for no more than %1 characters.</source>
        <translation>La ligne ne peut contenir que %1 caractères.</translation>
    </message>
    <message>
        <source>All pictures (%1)</source>
        <translation>Toutes les images (%1)</translation>
    </message>
</context>
<context>
    <name>CurveEditorDialogBase</name>
    <message>
        <source>Curve Editor</source>
        <translation>Éditeur de courbes</translation>
    </message>
    <message>
        <source>Selected variables</source>
        <translation>Variables sélectionnées</translation>
    </message>
    <message>
        <source>Here you can select the variables to be edited as curves</source>
        <translation>Vous pouvez sélectionner ici les variables à modifier sous forme de courbes</translation>
    </message>
    <message>
        <source>&lt;&lt;</source>
        <translation>&lt;&lt;</translation>
    </message>
    <message>
        <source>Select previous node</source>
        <translation>Sélectionner le nœud précédent</translation>
    </message>
    <message>
        <source>&gt;&gt;</source>
        <translation>&gt;&gt;</translation>
    </message>
    <message>
        <source>Select next node</source>
        <translation>Sélectionner le nœud suivant</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Temps&#xa0;:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Valeur&#xa0;:</translation>
    </message>
    <message>
        <source>Pre-behaviour:</source>
        <translation>Avant&#xa0;:</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Zéro</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Constante</translation>
    </message>
    <message>
        <source>Post-behaviour:</source>
        <translation>Après&#xa0;:</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Boucle avec décalage</translation>
    </message>
    <message>
        <source>Follow Tangent</source>
        <translation>Suivre la tangente</translation>
    </message>
    <message>
        <source>Ease From:</source>
        <translation>Départ&#xa0;:</translation>
    </message>
    <message>
        <source>Ease To:</source>
        <translation>Arrivée&#xa0;:</translation>
    </message>
    <message>
        <source>Tension:</source>
        <translation>Tension&#xa0;:</translation>
    </message>
    <message>
        <source>Continuity:</source>
        <translation>Continuité&#xa0;:</translation>
    </message>
    <message>
        <source>Bias:</source>
        <translation>Biais&#xa0;:</translation>
    </message>
    <message>
        <source>Incoming:</source>
        <translation>Entrante&#xa0;:</translation>
    </message>
    <message>
        <source>Outgoing:</source>
        <translation>Sortante&#xa0;:</translation>
    </message>
    <message>
        <source>Envelope</source>
        <translation>Enveloppe</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>L&apos;expression apparaît ici</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Ceci est l&apos;expression analysée</translation>
    </message>
    <message>
        <source>Delete Expression</source>
        <translation>Supprimer l&apos;expression</translation>
    </message>
    <message>
        <source>Expresion</source>
        <translation>Expression</translation>
    </message>
    <message>
        <source>Current node: its place among the nodes of the curve, counted from 0</source>
        <translation>Nœud en cours&#xa0;: sa place parmi les nœuds de la courbe, comptée à partir de 0</translation>
    </message>
    <message>
        <source>Current node: its time, or its frame number</source>
        <translation>Nœud en cours&#xa0;: son temps ou son numéro d&apos;image</translation>
    </message>
    <message>
        <source>Current node: its value</source>
        <translation>Nœud en cours&#xa0;: sa valeur</translation>
    </message>
    <message>
        <source>Current node: how the curve arrives, from 1 (it slows down) to -1 (it speeds up)</source>
        <translation>Nœud en cours&#xa0;: comment la courbe arrive, de 1 (elle ralentit) à -1 (elle accélère)</translation>
    </message>
    <message>
        <source>Current node: how the curve leaves, from 1 (slowly at first) to -1 (quickly at first)</source>
        <translation>Nœud en cours&#xa0;: comment la courbe part, de 1 (lentement au début) à -1 (vite au début)</translation>
    </message>
    <message>
        <source>Current node: how tightly the curve turns, from a narrow bend at 1 to a wide one at -1</source>
        <translation>Nœud en cours&#xa0;: combien la courbe se resserre, d&apos;un virage serré à 1 à un large à -1</translation>
    </message>
    <message>
        <source>Current node: how sharp a corner the curve makes, 0 for none</source>
        <translation>Nœud en cours&#xa0;: combien la courbe forme un angle vif, 0 pour aucun</translation>
    </message>
    <message>
        <source>Current node: whether its direction follows the node before (above 0) or after (below 0)</source>
        <translation>Nœud en cours&#xa0;: si sa direction suit le nœud d&apos;avant (au-dessus de 0) ou d&apos;après (en dessous de 0)</translation>
    </message>
    <message>
        <source>Current node: slope of the curve before it, in values per time unit</source>
        <translation>Nœud en cours&#xa0;: pente de la courbe avant lui, en valeurs par unité de temps</translation>
    </message>
    <message>
        <source>Current node: slope of the curve after it, in values per time unit</source>
        <translation>Nœud en cours&#xa0;: pente de la courbe après lui, en valeurs par unité de temps</translation>
    </message>
    <message>
        <source>Current node</source>
        <translation>Nœud en cours</translation>
    </message>
    <message>
        <source>Curve before the first node</source>
        <translation>Courbe avant le premier nœud</translation>
    </message>
    <message>
        <source>Curve after the last node</source>
        <translation>Courbe après le dernier nœud</translation>
    </message>
    <message>
        <source>Type of the current node: it shapes the curve from the node before to this one</source>
        <translation>Type du nœud en cours&#xa0;: il façonne la courbe du nœud précédent à celui-ci</translation>
    </message>
    <message>
        <source>Turns the current curve back into nodes that can be edited</source>
        <translation>Retransforme la courbe en cours en nœuds modifiables</translation>
    </message>
    <message>
        <source>What the numbers of the current node do to a curve</source>
        <translation>L&apos;effet des nombres du nœud en cours sur une courbe</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Curves on the canvas</source>
        <translation>Courbes sur le canevas</translation>
    </message>
    <message>
        <source>Previous node</source>
        <translation>Nœud précédent</translation>
    </message>
    <message>
        <source>Next node</source>
        <translation>Nœud suivant</translation>
    </message>
    <message>
        <source>Node index</source>
        <translation>Numéro du nœud</translation>
    </message>
    <message>
        <source>Time or frame</source>
        <translation>Temps ou image</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Pre-behaviour</source>
        <translation>Comportement avant</translation>
    </message>
    <message>
        <source>Post-behaviour</source>
        <translation>Comportement après</translation>
    </message>
    <message>
        <source>Ease from</source>
        <translation>Départ</translation>
    </message>
    <message>
        <source>Ease to</source>
        <translation>Arrivée</translation>
    </message>
    <message>
        <source>Node type</source>
        <translation>Type de nœud</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Tension</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Continuité</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Biais</translation>
    </message>
    <message>
        <source>Outgoing tangent</source>
        <translation>Tangente sortante</translation>
    </message>
    <message>
        <source>Incoming tangent</source>
        <translation>Tangente entrante</translation>
    </message>
    <message>
        <source>Preview of the node parameters</source>
        <translation>Aperçu des paramètres du nœud</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Expression</translation>
    </message>
    <message>
        <source>Formula of t, then Return</source>
        <translation>Formule en t, puis Entrée</translation>
    </message>
</context>
<context>
    <name>DecimalQuestion</name>
    <message>
        <source>Line %1 can be read in two ways. These are the rows from there on:</source>
        <translation>La ligne %1 peut se lire de deux façons. Voici les lignes à partir de là&#xa0;:</translation>
    </message>
    <message>
        <source>With a decimal comma:</source>
        <translation>Avec une virgule décimale&#xa0;:</translation>
    </message>
    <message>
        <source>With a decimal point:</source>
        <translation>Avec un point décimal&#xa0;:</translation>
    </message>
    <message>
        <source>Decimal comma</source>
        <translation>Virgule décimale</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Point décimal</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>EditingList</name>
    <message>
        <source>solo</source>
        <translation>isolée</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>masquée</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>verrouillée</translation>
    </message>
    <message>
        <source>Shows this curve alone, or with others that are marked so (Shift+H)</source>
        <translation>Montre cette courbe seule, ou avec les autres marquées ainsi (Maj+H)</translation>
    </message>
    <message>
        <source>The application hides this curve</source>
        <translation>L&apos;application masque cette courbe</translation>
    </message>
    <message>
        <source>Hides this curve (H)</source>
        <translation>Masque cette courbe (H)</translation>
    </message>
    <message>
        <source>The application has locked this curve</source>
        <translation>L&apos;application a verrouillé cette courbe</translation>
    </message>
    <message>
        <source>Locks this curve against edits (L)</source>
        <translation>Verrouille cette courbe contre les modifications (L)</translation>
    </message>
    <message>
        <source>Open a curve with +</source>
        <translation>Ouvrez une courbe avec +</translation>
    </message>
    <message>
        <source>formula</source>
        <translation>formule</translation>
    </message>
</context>
<context>
    <name>PanDialog</name>
    <message>
        <source>pan selection</source>
        <translation>Décaler la sélection</translation>
    </message>
    <message>
        <source>Pan X</source>
        <translation>Décalage X</translation>
    </message>
    <message>
        <source>Pan Y</source>
        <translation>Décalage Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>units of time</source>
        <translation>unités de temps</translation>
    </message>
    <message>
        <source>units of value</source>
        <translation>unités de valeur</translation>
    </message>
</context>
<context>
    <name>PointAccessible</name>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Point %1 of %2, frame %3, value %4</source>
        <translation>Point %1 sur %2, image %3, valeur %4</translation>
    </message>
    <message>
        <source>Point %1 of %2, time %3, value %4</source>
        <translation>Point %1 sur %2, temps %3, valeur %4</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Supprimer un point de %1</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>Supprimer %1 points de %2</translation>
    </message>
</context>
<context>
    <name>PointCommands</name>
    <message>
        <source>Nudge a point of %1</source>
        <translation>Déplacer légèrement un point de %1</translation>
    </message>
    <message>
        <source>Nudge %1 points of %2</source>
        <translation>Déplacer légèrement %1 points de %2</translation>
    </message>
    <message>
        <source>Cut points of %1</source>
        <translation>Couper des points de %1</translation>
    </message>
    <message>
        <source>Paste points</source>
        <translation>Coller des points</translation>
    </message>
    <message>
        <source>Paste points into %1</source>
        <translation>Coller des points dans %1</translation>
    </message>
    <message>
        <source>Duplicate points of %1</source>
        <translation>Dupliquer des points de %1</translation>
    </message>
    <message>
        <source>Insert a point on %1</source>
        <translation>Insérer un point sur %1</translation>
    </message>
    <message>
        <source>Flatten a point of %1</source>
        <translation>Aplatir un point de %1</translation>
    </message>
    <message>
        <source>Flatten %1 points of %2</source>
        <translation>Aplatir %1 points de %2</translation>
    </message>
    <message>
        <source>Align the tangents of a point of %1</source>
        <translation>Aligner les tangentes d&apos;un point de %1</translation>
    </message>
    <message>
        <source>Align the tangents of %1 points of %2</source>
        <translation>Aligner les tangentes de %1 points de %2</translation>
    </message>
    <message>
        <source>Smooth a point of %1</source>
        <translation>Lisser un point de %1</translation>
    </message>
    <message>
        <source>Smooth %1 points of %2</source>
        <translation>Lisser %1 points de %2</translation>
    </message>
    <message>
        <source>Moved there, the points would lie beyond all times.</source>
        <translation>Déplacés là, les points se trouveraient au-delà de tous les temps.</translation>
    </message>
    <message>
        <source>Replace points of %1</source>
        <translation>Remplacer des points de %1</translation>
    </message>
    <message>
        <source>Ease a point of %1</source>
        <translation>Adoucir l’accélération en un point de %1</translation>
    </message>
    <message>
        <source>Ease %1 points of %2</source>
        <translation>Adoucir l’accélération en %1 points de %2</translation>
    </message>
    <message>
        <source>Ease: %1 may have no Bezier points</source>
        <translation>Accélération&#xa0;: %1 ne peut pas avoir de points de Bézier</translation>
    </message>
    <message>
        <source>Ease: a level segment has no step, and is straight now</source>
        <translation>Accélération&#xa0;: un segment horizontal n’a pas d’écart&#xa0;; il est droit maintenant</translation>
    </message>
    <message>
        <source>Ease: deviates by at most %1 % of the step</source>
        <translation>Accélération&#xa0;: s’écarte d’au plus %1&#xa0;% de l’écart</translation>
    </message>
    <message>
        <source>Ease: exact</source>
        <translation>Accélération&#xa0;: exacte</translation>
    </message>
    <message>
        <source>%1; an eased Tcb segment beside it has bent</source>
        <translation>%1&#xa0;; un segment Tcb voisin avec départ ou arrivée s’est déformé</translation>
    </message>
    <message>
        <source>Ease: select both ends of a segment that is not vertical</source>
        <translation>Accélération : sélectionnez les deux extrémités d&apos;un segment qui n&apos;est pas vertical</translation>
    </message>
    <message>
        <source>Ease: the application has changed the result</source>
        <translation>Accélération : l&apos;application a modifié le résultat</translation>
    </message>
</context>
<context>
    <name>PointText</name>
    <message>
        <source>The text holds no points.</source>
        <translation>Le texte ne contient aucun point.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no column of points.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas une colonne de points.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is there twice.</source>
        <translation>La colonne «&#xa0;%1&#xa0;» est présente deux fois.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is missing.</source>
        <translation>La colonne «&#xa0;%1&#xa0;» manque.</translation>
    </message>
    <message>
        <source>More than %1 points.</source>
        <translation>Plus de %1 points.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no type of a point.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un type de point.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number that a point can have.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un nombre qu&apos;un point peut avoir.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways.</source>
        <translation>«&#xa0;%1&#xa0;» peut se lire de deux façons.</translation>
    </message>
    <message>
        <source>A quotation mark has no partner.</source>
        <translation>Un guillemet n&apos;a pas son pendant.</translation>
    </message>
    <message>
        <source>The line is too long.</source>
        <translation>La ligne est trop longue.</translation>
    </message>
    <message>
        <source>Numbers expected: %2, found: %1.</source>
        <translation>Nombres attendus : %2, trouvés : %1.</translation>
    </message>
    <message>
        <source>Rows expected: %2, found: %1.</source>
        <translation>Lignes attendues : %2, trouvées : %1.</translation>
    </message>
</context>
<context>
    <name>PointType</name>
    <message>
        <source>Linear</source>
        <translation>Linéaire</translation>
    </message>
    <message>
        <source>Linear node</source>
        <translation>Nœud linéaire</translation>
    </message>
    <message>
        <source>Linear point</source>
        <translation>Point linéaire</translation>
    </message>
    <message>
        <source>Selection to Linear</source>
        <translation>Sélection en linéaire</translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation>Bézier</translation>
    </message>
    <message>
        <source>Bezier node</source>
        <translation>Nœud de Bézier</translation>
    </message>
    <message>
        <source>Bezier point</source>
        <translation>Point de Bézier</translation>
    </message>
    <message>
        <source>Selection to Bezier</source>
        <translation>Sélection en Bézier</translation>
    </message>
    <message>
        <source>Tcb</source>
        <translation>TCB</translation>
    </message>
    <message>
        <source>Tcb node</source>
        <translation>Nœud TCB</translation>
    </message>
    <message>
        <source>Tcb point</source>
        <translation>Point TCB</translation>
    </message>
    <message>
        <source>Selection to Tcb</source>
        <translation>Sélection en TCB</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Palier</translation>
    </message>
    <message>
        <source>Hold node</source>
        <translation>Nœud Palier</translation>
    </message>
    <message>
        <source>Hold point</source>
        <translation>Point Palier</translation>
    </message>
    <message>
        <source>Selection to Hold</source>
        <translation>Sélection en Palier</translation>
    </message>
</context>
<context>
    <name>ScaleDialog</name>
    <message>
        <source>scale selection</source>
        <translation>Mettre la sélection à l&apos;échelle</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>Échelle X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>Échelle Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Pivot X</source>
        <translation>Pivot X</translation>
    </message>
    <message>
        <source>Pivot Y</source>
        <translation>Pivot Y</translation>
    </message>
    <message>
        <source>factor of times</source>
        <translation>facteur des temps</translation>
    </message>
    <message>
        <source>factor of values</source>
        <translation>facteur des valeurs</translation>
    </message>
    <message>
        <source>time that stays</source>
        <translation>temps qui ne change pas</translation>
    </message>
    <message>
        <source>value that stays</source>
        <translation>valeur qui ne change pas</translation>
    </message>
</context>
<context>
    <name>TcbCurveFrame</name>
    <message>
        <source>Select one point to edit its numbers</source>
        <translation>Sélectionnez un point pour modifier ses nombres</translation>
    </message>
    <message>
        <source>Open a curve with points to edit them here</source>
        <translation>Ouvrez une courbe avec des points pour les modifier ici</translation>
    </message>
</context>
<context>
    <name>TcbEditorForm</name>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Modifier un nombre d&apos;un point de %1</translation>
    </message>
</context>
<context>
    <name>ViewportSettings</name>
    <message>
        <source>viewPort Settings</source>
        <translation>Réglages de la vue</translation>
    </message>
    <message>
        <source>MinX</source>
        <translation>X min.</translation>
    </message>
    <message>
        <source>MinY</source>
        <translation>Y min.</translation>
    </message>
    <message>
        <source>MaxX</source>
        <translation>X max.</translation>
    </message>
    <message>
        <source>MaxY</source>
        <translation>Y max.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>first time</source>
        <translation>premier temps</translation>
    </message>
    <message>
        <source>lowest value</source>
        <translation>valeur minimale</translation>
    </message>
    <message>
        <source>last time</source>
        <translation>dernier temps</translation>
    </message>
    <message>
        <source>highest value</source>
        <translation>valeur maximale</translation>
    </message>
</context>
<context>
    <name>curveeditor::BakeDialog</name>
    <message>
        <source>Bake</source>
        <translation>Précalculer</translation>
    </message>
    <message>
        <source>&amp;From frame</source>
        <translation>&amp;Depuis l&apos;image</translation>
    </message>
    <message>
        <source>&amp;From time</source>
        <translation>&amp;Depuis le temps</translation>
    </message>
    <message>
        <source>&amp;To frame</source>
        <translation>&amp;Jusqu&apos;à l&apos;image</translation>
    </message>
    <message>
        <source>&amp;To time</source>
        <translation>&amp;Jusqu&apos;au temps</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <translation>Pa&amp;s</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>&amp;Points</translation>
    </message>
    <message>
        <source>As few as the tolerance allows</source>
        <translation>Aussi peu que la tolérance le permet</translation>
    </message>
    <message>
        <source>To&amp;lerance</source>
        <translation>To&amp;lérance</translation>
    </message>
    <message>
        <source>The times must be numbers.</source>
        <translation>Les temps doivent être des nombres.</translation>
    </message>
    <message>
        <source>This takes too long. Fewer points may do.</source>
        <translation>Cela prend trop de temps. Moins de points suffisent peut-être.</translation>
    </message>
    <message>
        <source>The step must be greater than 0.</source>
        <translation>Le pas doit être supérieur à 0.</translation>
    </message>
    <message>
        <source>The first time is later than the last.</source>
        <translation>Le premier temps est postérieur au dernier.</translation>
    </message>
    <message>
        <source>These are more than %1 points.</source>
        <translation>Cela fait plus de %1 points.</translation>
    </message>
    <message>
        <source>The curve has no value there.</source>
        <translation>La courbe n&apos;a pas de valeur à cet endroit.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Nombre de points&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 values become %2 points, at most %3 away.</source>
        <translation>%1 valeurs deviennent %2 points, à %3 au plus.</translation>
    </message>
    <message>
        <source>Bake %1</source>
        <translation>Précalculer %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::CurveChooser</name>
    <message>
        <source>Curves to open</source>
        <translation>Courbes à ouvrir</translation>
    </message>
    <message>
        <source>There is no other curve</source>
        <translation>Il n&apos;y a pas d&apos;autre courbe</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>Filter of the curves to open</source>
        <translation>Filtre des courbes à ouvrir</translation>
    </message>
    <message>
        <source>Curves that are not on the canvas</source>
        <translation>Courbes absentes du canevas</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; Return puts the chosen ones on the canvas</source>
        <translation>N&apos;affiche que les courbes dont le nom contient ce texte ; Entrée met celles qui sont choisies sur le canevas</translation>
    </message>
    <message>
        <source>Return or a double click puts the chosen curves on the canvas, Shift and Ctrl choose several</source>
        <translation>Entrée ou un double clic met les courbes choisies sur le canevas ; Maj et Ctrl en choisissent plusieurs</translation>
    </message>
</context>
<context>
    <name>curveeditor::EaseDialog</name>
    <message>
        <source>CSS ease</source>
        <translation>Accélération CSS</translation>
    </message>
    <message>
        <source>x1 and x2 are numbers from 0 to 1, y1 and y2 from %1 to %2.</source>
        <translation>x1 et x2 sont des nombres de 0 à 1, y1 et y2 de %1 à %2.</translation>
    </message>
    <message>
        <source>Points added to a segment: %1</source>
        <translation>Points ajoutés à un segment : %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditMenu</name>
    <message>
        <source>Cut points</source>
        <translation>Couper les points</translation>
    </message>
    <message>
        <source>Copy points</source>
        <translation>Copier les points</translation>
    </message>
    <message>
        <source>Paste points at the time line</source>
        <translation>Coller les points à la ligne de temps</translation>
    </message>
    <message>
        <source>Paste points where they were</source>
        <translation>Coller les points là où ils étaient</translation>
    </message>
    <message>
        <source>Duplicate points</source>
        <translation>Dupliquer les points</translation>
    </message>
    <message>
        <source>Edit all curves at once</source>
        <translation>Modifier toutes les courbes à la fois</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Sélectionner tous les points</translation>
    </message>
    <message>
        <source>Select no point</source>
        <translation>Ne sélectionner aucun point</translation>
    </message>
    <message>
        <source>Select the other points</source>
        <translation>Sélectionner les autres points</translation>
    </message>
    <message>
        <source>Select the next point too</source>
        <translation>Sélectionner aussi le point suivant</translation>
    </message>
    <message>
        <source>Select the previous point too</source>
        <translation>Sélectionner aussi le point précédent</translation>
    </message>
    <message>
        <source>A frame later</source>
        <translation>Une image plus tard</translation>
    </message>
    <message>
        <source>A frame earlier</source>
        <translation>Une image plus tôt</translation>
    </message>
    <message>
        <source>A tenth of a grid line up</source>
        <translation>Un dixième de ligne de grille vers le haut</translation>
    </message>
    <message>
        <source>A tenth of a grid line down</source>
        <translation>Un dixième de ligne de grille vers le bas</translation>
    </message>
    <message>
        <source>A frame later, ten times</source>
        <translation>Dix images plus tard</translation>
    </message>
    <message>
        <source>A frame earlier, ten times</source>
        <translation>Dix images plus tôt</translation>
    </message>
    <message>
        <source>A tenth of a grid line up, ten times</source>
        <translation>Une ligne de grille vers le haut</translation>
    </message>
    <message>
        <source>A tenth of a grid line down, ten times</source>
        <translation>Une ligne de grille vers le bas</translation>
    </message>
    <message>
        <source>Move points</source>
        <translation>Déplacer les points</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the mouse</source>
        <translation>Insérer un point sur la courbe à la souris</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the time line</source>
        <translation>Insérer un point sur la courbe à la ligne de temps</translation>
    </message>
    <message>
        <source>Tangents</source>
        <translation>Tangentes</translation>
    </message>
    <message>
        <source>Flatten</source>
        <translation>Aplatir</translation>
    </message>
    <message>
        <source>Align both sides</source>
        <translation>Aligner les deux côtés</translation>
    </message>
    <message>
        <source>Smooth without overshoot</source>
        <translation>Lisser sans dépassement</translation>
    </message>
    <message>
        <source>Simplify…</source>
        <translation>Simplifier…</translation>
    </message>
    <message>
        <source>Bake…</source>
        <translation>Précalculer…</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Magnétisme</translation>
    </message>
    <message>
        <source>Snap while dragging (Ctrl: the other way)</source>
        <translation>Aimanter lors du glissement (Ctrl&#xa0;: l&apos;inverse)</translation>
    </message>
    <message>
        <source>To frames</source>
        <translation>Aux images</translation>
    </message>
    <message>
        <source>To grid lines</source>
        <translation>Aux lignes de grille</translation>
    </message>
    <message>
        <source>To points</source>
        <translation>Aux points</translation>
    </message>
    <message>
        <source>To the time line</source>
        <translation>À la ligne de temps</translation>
    </message>
    <message>
        <source>Show all curves</source>
        <translation>Afficher toutes les courbes</translation>
    </message>
    <message>
        <source>Show selected points or the curve</source>
        <translation>Afficher les points sélectionnés ou la courbe</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Time line a frame later</source>
        <translation>Ligne de temps une image plus tard</translation>
    </message>
    <message>
        <source>Time line a frame earlier</source>
        <translation>Ligne de temps une image plus tôt</translation>
    </message>
    <message>
        <source>Show the slope of the curve</source>
        <translation>Montrer la pente de la courbe</translation>
    </message>
    <message>
        <source>Lock the curve</source>
        <translation>Verrouiller la courbe</translation>
    </message>
    <message>
        <source>Hide the curve</source>
        <translation>Masquer la courbe</translation>
    </message>
    <message>
        <source>Show the curve alone</source>
        <translation>Montrer la courbe seule</translation>
    </message>
    <message>
        <source>Paste at the time line, replacing points</source>
        <translation>Coller à la ligne de temps en remplaçant les points</translation>
    </message>
    <message>
        <source>Keep handles in line</source>
        <translation>Garder les poignées alignées</translation>
    </message>
    <message>
        <source>Sine in</source>
        <translation>Sinus au début</translation>
    </message>
    <message>
        <source>Sine out</source>
        <translation>Sinus à la fin</translation>
    </message>
    <message>
        <source>Sine in and out</source>
        <translation>Sinus aux deux bouts</translation>
    </message>
    <message>
        <source>Quadratic in</source>
        <translation>Quadratique au début</translation>
    </message>
    <message>
        <source>Quadratic out</source>
        <translation>Quadratique à la fin</translation>
    </message>
    <message>
        <source>Quadratic in and out</source>
        <translation>Quadratique aux deux bouts</translation>
    </message>
    <message>
        <source>Cubic in</source>
        <translation>Cubique au début</translation>
    </message>
    <message>
        <source>Cubic out</source>
        <translation>Cubique à la fin</translation>
    </message>
    <message>
        <source>Cubic in and out</source>
        <translation>Cubique aux deux bouts</translation>
    </message>
    <message>
        <source>Exponential in</source>
        <translation>Exponentielle au début</translation>
    </message>
    <message>
        <source>Exponential out</source>
        <translation>Exponentielle à la fin</translation>
    </message>
    <message>
        <source>Exponential in and out</source>
        <translation>Exponentielle aux deux bouts</translation>
    </message>
    <message>
        <source>Back in</source>
        <translation>Recul au début</translation>
    </message>
    <message>
        <source>Back out</source>
        <translation>Recul à la fin</translation>
    </message>
    <message>
        <source>Back in and out</source>
        <translation>Recul aux deux bouts</translation>
    </message>
    <message>
        <source>Ease</source>
        <translation>Accélération</translation>
    </message>
    <message>
        <source>Smoothstep</source>
        <translation>Smoothstep</translation>
    </message>
    <message>
        <source>CSS…</source>
        <translation>CSS…</translation>
    </message>
    <message>
        <source>Own scale for each curve</source>
        <translation>Échelle propre à chaque courbe</translation>
    </message>
    <message>
        <source>Transform box</source>
        <translation>Boîte de transformation</translation>
    </message>
    <message>
        <source>Retime…</source>
        <translation>Changer les temps…</translation>
    </message>
    <message>
        <source>Pale image behind the curves</source>
        <translation>Image pâle derrière les courbes</translation>
    </message>
    <message>
        <source>No point is selected.</source>
        <translation>Aucun point n’est sélectionné.</translation>
    </message>
    <message>
        <source>No point of the current curve is selected.</source>
        <translation>Aucun point de la courbe en cours n’est sélectionné.</translation>
    </message>
    <message>
        <source>The clipboard holds no points.</source>
        <translation>Le presse-papiers ne contient aucun point.</translation>
    </message>
    <message>
        <source>The current curve shows no points.</source>
        <translation>La courbe courante ne montre aucun point.</translation>
    </message>
    <message>
        <source>The current curve does not show more than two points.</source>
        <translation>La courbe courante ne montre pas plus de deux points.</translation>
    </message>
    <message>
        <source>No curve that is shown is the current one.</source>
        <translation>La courbe courante n&apos;est pas affichée.</translation>
    </message>
    <message>
        <source>The application does not allow that here.</source>
        <translation>L&apos;application ne le permet pas ici.</translation>
    </message>
    <message>
        <source>Draw into the curve (hold D)</source>
        <translation>Dessiner dans la courbe (maintenir D)</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditingListPanel</name>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>Filter of the curves</source>
        <translation>Filtre des courbes</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; the others stay on the canvas</source>
        <translation>N&apos;affiche que les courbes dont le nom contient ce texte&#xa0;; les autres restent sur le canevas</translation>
    </message>
    <message>
        <source>Open curves…</source>
        <translation>Ouvrir des courbes…</translation>
    </message>
    <message>
        <source>Open curves</source>
        <translation>Ouvrir des courbes</translation>
    </message>
    <message>
        <source>Puts curves on the canvas (Insert in the list)</source>
        <translation>Met des courbes sur le canevas (Inser dans la liste)</translation>
    </message>
</context>
<context>
    <name>curveeditor::FitDialog</name>
    <message>
        <source>The tolerance must be a number, 0 or more.</source>
        <translation>La tolérance doit être un nombre, 0 ou plus.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>La courbe est verrouillée.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>curveeditor::FreehandDrag</name>
    <message>
        <source>Draw %1</source>
        <translation>Dessiner %1</translation>
    </message>
    <message>
        <source>A formula can&apos;t be drawn.</source>
        <translation>Une formule ne peut pas être dessinée.</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 est verrouillée.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Cela donne des points de Bézier ou linéaires, que cette courbe ne peut pas avoir.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 est masquée.</translation>
    </message>
    <message>
        <source>The next drag draws; Escape forgets it.</source>
        <translation>Le prochain glissement dessine ; Échap l&apos;oublie.</translation>
    </message>
</context>
<context>
    <name>curveeditor::NumbersForm</name>
    <message>
        <source>This is no number</source>
        <translation>Ce n&apos;est pas un nombre</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTableModel</name>
    <message>
        <source>Frame</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Incoming</source>
        <translation>Entrante</translation>
    </message>
    <message>
        <source>Outgoing</source>
        <translation>Sortante</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Tension</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Continuité</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Biais</translation>
    </message>
    <message>
        <source>Ease To</source>
        <translation>Arrivée</translation>
    </message>
    <message>
        <source>Ease From</source>
        <translation>Départ</translation>
    </message>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Modifier le type d&apos;un point de %1</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Modifier le type de %1 points de %2</translation>
    </message>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Modifier un nombre d&apos;un point de %1</translation>
    </message>
    <message>
        <source>Change a number of %1 points of %2</source>
        <translation>Modifier un nombre de %1 points de %2</translation>
    </message>
    <message>
        <source>No finite number was typed. The old one stays.</source>
        <translation>Aucun nombre fini n&apos;a été saisi. L&apos;ancien est conservé.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>La courbe est verrouillée.</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTablePage</name>
    <message>
        <source>Points</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Points of the current curve</source>
        <translation>Points de la courbe en cours</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Sélectionner tous les points</translation>
    </message>
    <message>
        <source>Selects all points of the current curve</source>
        <translation>Sélectionne tous les points de la courbe en cours</translation>
    </message>
    <message>
        <source>What is typed into a cell goes to all selected rows</source>
        <translation>Ce qui est saisi dans une cellule vaut pour toutes les lignes sélectionnées</translation>
    </message>
    <message>
        <source>Open a curve with points to see them here</source>
        <translation>Ouvrez une courbe avec des points pour les voir ici</translation>
    </message>
</context>
<context>
    <name>curveeditor::RetimeDialog</name>
    <message>
        <source>Retime a point of %1</source>
        <translation>Changer le temps d’un point de %1</translation>
    </message>
    <message>
        <source>Retime %1 points of %2</source>
        <translation>Changer les temps de %1 points de %2</translation>
    </message>
    <message>
        <source>Retime</source>
        <translation>Changer les temps</translation>
    </message>
    <message>
        <source>&amp;Time factor</source>
        <translation>Facteur de &amp;temps</translation>
    </message>
    <message>
        <source>&amp;Value factor</source>
        <translation>Facteur de &amp;valeur</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Autour de</translation>
    </message>
    <message>
        <source>The first point</source>
        <translation>Le premier point</translation>
    </message>
    <message>
        <source>The curve at the time line</source>
        <translation>La courbe à la ligne de temps</translation>
    </message>
    <message>
        <source>The middle</source>
        <translation>Le milieu</translation>
    </message>
    <message>
        <source>The factors must be numbers, that of the times not 0.</source>
        <translation>Les facteurs doivent être des nombres, celui de temps différent de 0.</translation>
    </message>
    <message>
        <source>A curve has changed meanwhile and stays as it is.</source>
        <translation>Une courbe a changé entre-temps et reste telle quelle.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Nombre de points&#xa0;: %1</translation>
    </message>
    <message>
        <source>A single point keeps its place, unless it is retimed about the time line.</source>
        <translation>Un point seul garde sa place, sauf autour de la ligne de temps.</translation>
    </message>
</context>
<context>
    <name>curveeditor::ShrinkingBox</name>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
</context>
<context>
    <name>curveeditor::SimplifyDialog</name>
    <message>
        <source>Simplify %1</source>
        <translation>Simplifier %1</translation>
    </message>
    <message>
        <source>Simplify</source>
        <translation>Simplifier</translation>
    </message>
    <message>
        <source>&amp;Tolerance</source>
        <translation>&amp;Tolérance</translation>
    </message>
    <message>
        <source>&amp;Keep rising and falling parts so</source>
        <translation>&amp;Garder les parties croissantes et décroissantes</translation>
    </message>
    <message>
        <source>The curve has changed meanwhile and stays as it is.</source>
        <translation>La courbe a changé entre-temps et reste telle quelle.</translation>
    </message>
    <message>
        <source>No fewer than %1 points are within this tolerance.</source>
        <translation>Moins de %1 points ne respectent pas cette tolérance.</translation>
    </message>
    <message>
        <source>%1 points of the selected part become %2, at most %3 away.</source>
        <translation>%1 points de la partie sélectionnée deviennent %2, à %3 au plus.</translation>
    </message>
    <message>
        <source>%1 points become %2, at most %3 away.</source>
        <translation>%1 points deviennent %2, à %3 au plus.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Cela donne des points de Bézier ou linéaires, que cette courbe ne peut pas avoir.</translation>
    </message>
</context>
<context>
    <name>curveeditor::TransformBox</name>
    <message>
        <source>That would leave points without a time or a value.</source>
        <translation>Des points n’auraient alors plus de temps ou de valeur.</translation>
    </message>
    <message>
        <source>Nothing that can be edited is selected.</source>
        <translation>Rien de modifiable n’est sélectionné.</translation>
    </message>
    <message>
        <source>A transform box takes points at two times or two values.</source>
        <translation>Une boîte de transformation demande des points à deux temps ou à deux valeurs.</translation>
    </message>
    <message>
        <source>Edges scale, with Shift about the middle; the inside moves; Return ends it.</source>
        <translation>Les bords mettent à l’échelle, avec Maj autour du milieu&#xa0;; l’intérieur déplace&#xa0;; Entrée termine.</translation>
    </message>
    <message>
        <source>Move a point of %1</source>
        <translation>Déplacer un point de %1</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>Déplacer %1 points de %2</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Mettre à l&apos;échelle un point de %1</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>Mettre à l&apos;échelle %1 points de %2</translation>
    </message>
    <message>
        <source>A Tcb segment beside points that are not selected may bend.</source>
        <translation>À côté de points non sélectionnés, un segment TCB peut se déformer.</translation>
    </message>
</context>
</TS>
