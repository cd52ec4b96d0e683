<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CanvasAccessible</name>
    <message>
        <source>Canvas without a curve</source>
        <translation>Lienzo sin curva</translation>
    </message>
    <message>
        <source>Canvas, curve %1</source>
        <translation>Lienzo, curva %1</translation>
    </message>
    <message>
        <source>%1 points, %2 selected</source>
        <translation>%1 puntos, %2 seleccionados</translation>
    </message>
    <message>
        <source>Formula %1</source>
        <translation>Fórmula %1</translation>
    </message>
</context>
<context>
    <name>CanvasEdit</name>
    <message>
        <source>%1 curves</source>
        <translation>%1 curvas</translation>
    </message>
</context>
<context>
    <name>CanvasFunctionBase</name>
    <message>
        <source>Variable %1 not found</source>
        <translation>No se encontró la variable %1</translation>
    </message>
    <message>
        <source>Unmatched parenthesis</source>
        <translation>Paréntesis sin pareja</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Error desconocido</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>The formula of %1 can&apos;t be read any more:
%2</source>
        <translation>La fórmula de %1 ya no se puede leer:
%2</translation>
    </message>
    <message>
        <source>Delete the formula of %1</source>
        <translation>Eliminar la fórmula de %1</translation>
    </message>
    <message>
        <source>Show the spline of %1</source>
        <translation>Mostrar la spline de %1</translation>
    </message>
    <message>
        <source>Show the formula of %1</source>
        <translation>Mostrar la fórmula de %1</translation>
    </message>
    <message>
        <source>Reset all curves</source>
        <translation>Restablecer todas las curvas</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>Restablecer %1</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <translation>Error de sintaxis</translation>
    </message>
    <message>
        <source>Enter the formula of %1</source>
        <translation>Introducir la fórmula de %1</translation>
    </message>
    <message>
        <source>Cyclical dependency</source>
        <translation>Dependencia cíclica</translation>
    </message>
    <message>
        <source>Cyclical dependency has been found for d-var %1 </source>
        <translation>Se ha encontrado una dependencia cíclica en la variable dependiente %1</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>Cargar %1</translation>
    </message>
    <message>
        <source>Change the start behaviour of %1</source>
        <translation>Cambiar el comportamiento inicial de %1</translation>
    </message>
    <message>
        <source>Change the end behaviour of %1</source>
        <translation>Cambiar el comportamiento final de %1</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Eliminar un punto de %1</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>Eliminar %1 puntos de %2</translation>
    </message>
    <message>
        <source>Add a point to %1</source>
        <translation>Añadir un punto a %1</translation>
    </message>
    <message>
        <source>Change the type of points</source>
        <translation>Cambiar el tipo de puntos</translation>
    </message>
    <message>
        <source>Delete points</source>
        <translation>Eliminar puntos</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Escalar un punto de %1</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>Escalar %1 puntos de %2</translation>
    </message>
    <message>
        <source>Pan a point of %1</source>
        <translation>Desplazar un punto de %1</translation>
    </message>
    <message>
        <source>Pan %1 points of %2</source>
        <translation>Desplazar %1 puntos de %2</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 está bloqueada.</translation>
    </message>
    <message>
        <source>The application has locked %1.</source>
        <translation>La aplicación ha bloqueado %1.</translation>
    </message>
    <message>
        <source>The application hides %1.</source>
        <translation>La aplicación oculta %1.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 está oculta.</translation>
    </message>
    <message>
        <source>%1 is seen alone.</source>
        <translation>Solo se ve %1.</translation>
    </message>
</context>
<context>
    <name>CanvasHands</name>
    <message>
        <source>Move a point of %1</source>
        <translation>Mover un punto de %1</translation>
    </message>
    <message>
        <source>Change a tangent of %1</source>
        <translation>Cambiar una tangente de %1</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>Mover %1 puntos de %2</translation>
    </message>
</context>
<context>
    <name>CanvasPicture</name>
    <message>
        <source>Drop the name of a curve on the list to edit it here</source>
        <translation>Suelte el nombre de una curva en la lista para editarla aquí</translation>
    </message>
    <message>
        <source>Double-click to add a point</source>
        <translation>Haga doble clic para añadir un punto</translation>
    </message>
    <message>
        <source>Slope %1</source>
        <translation>Pendiente %1</translation>
    </message>
    <message>
        <source>Own scale</source>
        <translation>Escala propia</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Bloqueada</translation>
    </message>
    <message>
        <source>All curves</source>
        <translation>Todas las curvas</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Ajuste</translation>
    </message>
    <message>
        <source>All points of this curve lie outside the range that is set under &quot;Options&quot;</source>
        <translation>Todos los puntos de esta curva están fuera del intervalo fijado en «Opciones»</translation>
    </message>
</context>
<context>
    <name>ControlMenu</name>
    <message>
        <source>Create key</source>
        <translation>Crear fotograma clave</translation>
    </message>
    <message>
        <source>Delete key</source>
        <translation>Eliminar fotograma clave</translation>
    </message>
</context>
<context>
    <name>ControlMenu2</name>
    <message>
        <source>Remove from editing list</source>
        <translation>Quitar de la lista de edición</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>Cambiar color</translation>
    </message>
</context>
<context>
    <name>ControlSplineNode</name>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Cambiar el tipo de un punto de %1</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Cambiar el tipo de %1 puntos de %2</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Canvas</source>
        <translation>Lienzo</translation>
    </message>
    <message>
        <source>Horizontal axis</source>
        <translation>Eje horizontal</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Curves</source>
        <translation>Curvas</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source> Fit </source>
        <translation> Ajustar </translation>
    </message>
    <message>
        <source> Fit H </source>
        <translation> Ajustar H </translation>
    </message>
    <message>
        <source> Fit V </source>
        <translation> Ajustar V </translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Escalar</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>Unary functions</source>
        <translation>Funciones unarias</translation>
    </message>
    <message>
        <source>Binary functions</source>
        <translation>Funciones binarias</translation>
    </message>
    <message>
        <source>Ternary functions</source>
        <translation>Funciones ternarias</translation>
    </message>
    <message>
        <source>I vars</source>
        <translation>Var. indep.</translation>
    </message>
    <message>
        <source>D vars</source>
        <translation>Var. dep.</translation>
    </message>
    <message>
        <source>Frame:</source>
        <translation>Fotograma:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Tiempo:</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Esta es la expresión analizada</translation>
    </message>
    <message>
        <source>Reset All Checked Curves</source>
        <translation>Restablecer todas las curvas marcadas</translation>
    </message>
    <message>
        <source>Reset curve</source>
        <translation>Restablecer curva</translation>
    </message>
    <message>
        <source>Load curve</source>
        <translation>Cargar curva</translation>
    </message>
    <message>
        <source>Save curve</source>
        <translation>Guardar curva</translation>
    </message>
    <message>
        <source>Set Range</source>
        <translation>Definir rango</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>Restablecer vista</translation>
    </message>
    <message>
        <source>Load image</source>
        <translation>Cargar imagen</translation>
    </message>
    <message>
        <source>Clear image</source>
        <translation>Quitar imagen</translation>
    </message>
    <message>
        <source>Fit View</source>
        <translation>Ajustar vista</translation>
    </message>
    <message>
        <source>Fit Horizontal View</source>
        <translation>Ajustar vista horizontal</translation>
    </message>
    <message>
        <source>Fit Vertical View</source>
        <translation>Ajustar vista vertical</translation>
    </message>
    <message>
        <source>Scale selection</source>
        <translation>Escalar selección</translation>
    </message>
    <message>
        <source>Pan selection</source>
        <translation>Desplazar selección</translation>
    </message>
    <message>
        <source>Show time</source>
        <translation>Mostrar tiempo</translation>
    </message>
    <message>
        <source>Show frames</source>
        <translation>Mostrar fotogramas</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Cero</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Constante</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Bucle con desplazamiento</translation>
    </message>
    <message>
        <source>Follow tangent</source>
        <translation>Seguir la tangente</translation>
    </message>
    <message>
        <source>Start Node Behaviour</source>
        <translation>Comportamiento del nodo inicial</translation>
    </message>
    <message>
        <source>Last Node Behaviour</source>
        <translation>Comportamiento del nodo final</translation>
    </message>
    <message>
        <source>Horizontal axis mode</source>
        <translation>Modo del eje horizontal</translation>
    </message>
    <message>
        <source>Reset all the checked curves</source>
        <translation>Restablece todas las curvas marcadas</translation>
    </message>
    <message>
        <source>Reset the current editing curve</source>
        <translation>Restablece la curva actual</translation>
    </message>
    <message>
        <source>Open previously saved curve</source>
        <translation>Abre una curva guardada anteriormente</translation>
    </message>
    <message>
        <source>Save the current curve</source>
        <translation>Guarda la curva actual</translation>
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
        <translation>Restablece, carga y guarda curvas</translation>
    </message>
    <message>
        <source>Chooses the current curve among those on the canvas</source>
        <translation>Elige la curva actual entre las del lienzo</translation>
    </message>
    <message>
        <source>Sets the view, the background image and the curve outside its nodes</source>
        <translation>Define la vista, la imagen de fondo y la curva fuera de sus nodos</translation>
    </message>
    <message>
        <source>Takes edits back, and works on the selected points and the view</source>
        <translation>Deshace cambios y actúa sobre los puntos seleccionados y la vista</translation>
    </message>
    <message>
        <source>Makes the expression the argument of a function</source>
        <translation>Convierte la expresión en argumento de una función</translation>
    </message>
    <message>
        <source>Joins the expression with a second operand</source>
        <translation>Une la expresión con un segundo operando</translation>
    </message>
    <message>
        <source>Makes the expression one of the two that a condition chooses from</source>
        <translation>Convierte la expresión en una de las dos entre las que elige una condición</translation>
    </message>
    <message>
        <source>Inserts the time or the frame number</source>
        <translation>Inserta el tiempo o el número de fotograma</translation>
    </message>
    <message>
        <source>Inserts the value of another curve</source>
        <translation>Inserta el valor de otra curva</translation>
    </message>
    <message>
        <source>Shows the whole current curve</source>
        <translation>Muestra toda la curva actual</translation>
    </message>
    <message>
        <source>Shows all times of the current curve</source>
        <translation>Muestra todos los tiempos de la curva actual</translation>
    </message>
    <message>
        <source>Shows all values of the current curve</source>
        <translation>Muestra todos los valores de la curva actual</translation>
    </message>
    <message>
        <source>Scales the selected points by two factors</source>
        <translation>Escala los puntos seleccionados con dos factores</translation>
    </message>
    <message>
        <source>Moves the selected points by two distances</source>
        <translation>Desplaza los puntos seleccionados dos distancias</translation>
    </message>
    <message>
        <source>Time or frame at the mouse</source>
        <translation>Tiempo o fotograma en el ratón</translation>
    </message>
    <message>
        <source>Time or frame number at the mouse</source>
        <translation>Tiempo o número de fotograma en el ratón</translation>
    </message>
    <message>
        <source>Value at the mouse</source>
        <translation>Valor en el ratón</translation>
    </message>
    <message>
        <source>Value of the curve</source>
        <translation>Valor de la curva</translation>
    </message>
    <message>
        <source>Value of the current curve at the time of the mouse</source>
        <translation>Valor de la curva actual en el tiempo del ratón</translation>
    </message>
    <message>
        <source>%1 holds no curve that can be read.</source>
        <translation>%1 no contiene ninguna curva legible.</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ya existe.
¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>The curve could not be saved to %1.</source>
        <translation>No se pudo guardar la curva en %1.</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Fotog.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Tiempo</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Cursor</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>This expression is too long for the line and can&apos;t be edited here</source>
        <translation>Esta expresión es demasiado larga para la línea y no se puede editar aquí</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>Aquí aparece la expresión</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Deshacer: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Rehacer: %1</translation>
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
        <source>The curve was saved to %1, but is perhaps not yet on the disk.</source>
        <translation>La curva se guardó en %1, pero quizá aún no esté en el disco.</translation>
    </message>
    <message>
        <source>%1 holds no picture that can be read.</source>
        <translation>%1 no contiene ninguna imagen legible.</translation>
    </message>
    <message>
        <source>Edit a curve</source>
        <translation>Editar una curva</translation>
    </message>
    <message>
        <source>There is no curve of the name &quot;%1&quot;.</source>
        <translation>No hay ninguna curva con el nombre «%1».</translation>
    </message>
    <message>
        <source>Formula</source>
        <translation>Fórmula</translation>
    </message>
    <message>
        <source>The line has room for no more than %1 characters.</source>
        <translation>En la línea no caben más de %1 caracteres.</translation>
    </message>
    <message>
        <source>All pictures (%1)</source>
        <translation>Todas las imágenes (%1)</translation>
    </message>
</context>
<context>
    <name>CurveEditorDialogBase</name>
    <message>
        <source>Curve Editor</source>
        <translation>Editor de curvas</translation>
    </message>
    <message>
        <source>Selected variables</source>
        <translation>Variables seleccionadas</translation>
    </message>
    <message>
        <source>Here you can select the variables to be edited as curves</source>
        <translation>Aquí puede seleccionar las variables que se editan como curvas</translation>
    </message>
    <message>
        <source>&lt;&lt;</source>
        <translation>&lt;&lt;</translation>
    </message>
    <message>
        <source>Select previous node</source>
        <translation>Seleccionar el nodo anterior</translation>
    </message>
    <message>
        <source>&gt;&gt;</source>
        <translation>&gt;&gt;</translation>
    </message>
    <message>
        <source>Select next node</source>
        <translation>Seleccionar el nodo siguiente</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Tiempo:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Valor:</translation>
    </message>
    <message>
        <source>Pre-behaviour:</source>
        <translation>Antes:</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Cero</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Constante</translation>
    </message>
    <message>
        <source>Post-behaviour:</source>
        <translation>Después:</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>Bucle con desplazamiento</translation>
    </message>
    <message>
        <source>Follow Tangent</source>
        <translation>Seguir la tangente</translation>
    </message>
    <message>
        <source>Ease From:</source>
        <translation>Salida:</translation>
    </message>
    <message>
        <source>Ease To:</source>
        <translation>Llegada:</translation>
    </message>
    <message>
        <source>Tension:</source>
        <translation>Tensión:</translation>
    </message>
    <message>
        <source>Continuity:</source>
        <translation>Continuidad:</translation>
    </message>
    <message>
        <source>Bias:</source>
        <translation>Sesgo:</translation>
    </message>
    <message>
        <source>Incoming:</source>
        <translation>Entrante:</translation>
    </message>
    <message>
        <source>Outgoing:</source>
        <translation>Saliente:</translation>
    </message>
    <message>
        <source>Envelope</source>
        <translation>Envolvente</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>Aquí aparece la expresión</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>Esta es la expresión analizada</translation>
    </message>
    <message>
        <source>Delete Expression</source>
        <translation>Eliminar expresión</translation>
    </message>
    <message>
        <source>Expresion</source>
        <translation>Expresión</translation>
    </message>
    <message>
        <source>Current node: its place among the nodes of the curve, counted from 0</source>
        <translation>Nodo actual: su lugar entre los nodos de la curva, contado desde 0</translation>
    </message>
    <message>
        <source>Current node: its time, or its frame number</source>
        <translation>Nodo actual: su tiempo o su número de fotograma</translation>
    </message>
    <message>
        <source>Current node: its value</source>
        <translation>Nodo actual: su valor</translation>
    </message>
    <message>
        <source>Current node: how the curve arrives, from 1 (it slows down) to -1 (it speeds up)</source>
        <translation>Nodo actual: cómo llega la curva, de 1 (se frena) a -1 (se acelera)</translation>
    </message>
    <message>
        <source>Current node: how the curve leaves, from 1 (slowly at first) to -1 (quickly at first)</source>
        <translation>Nodo actual: cómo sale la curva, de 1 (lenta al principio) a -1 (rápida al principio)</translation>
    </message>
    <message>
        <source>Current node: how tightly the curve turns, from a narrow bend at 1 to a wide one at -1</source>
        <translation>Nodo actual: cuánto se cierra la curva, de un giro estrecho en 1 a uno amplio en -1</translation>
    </message>
    <message>
        <source>Current node: how sharp a corner the curve makes, 0 for none</source>
        <translation>Nodo actual: cuán aguda es la esquina de la curva, 0 si no hay</translation>
    </message>
    <message>
        <source>Current node: whether its direction follows the node before (above 0) or after (below 0)</source>
        <translation>Nodo actual: si su dirección sigue al nodo anterior (mayor que 0) o al posterior (menor que 0)</translation>
    </message>
    <message>
        <source>Current node: slope of the curve before it, in values per time unit</source>
        <translation>Nodo actual: pendiente de la curva antes de él, en valores por unidad de tiempo</translation>
    </message>
    <message>
        <source>Current node: slope of the curve after it, in values per time unit</source>
        <translation>Nodo actual: pendiente de la curva después de él, en valores por unidad de tiempo</translation>
    </message>
    <message>
        <source>Current node</source>
        <translation>Nodo actual</translation>
    </message>
    <message>
        <source>Curve before the first node</source>
        <translation>Curva antes del primer nodo</translation>
    </message>
    <message>
        <source>Curve after the last node</source>
        <translation>Curva después del último nodo</translation>
    </message>
    <message>
        <source>Type of the current node: it shapes the curve from the node before to this one</source>
        <translation>Tipo del nodo actual: da forma a la curva desde el nodo anterior hasta este</translation>
    </message>
    <message>
        <source>Turns the current curve back into nodes that can be edited</source>
        <translation>Vuelve a convertir la curva actual en nodos editables</translation>
    </message>
    <message>
        <source>What the numbers of the current node do to a curve</source>
        <translation>Lo que los números del nodo actual hacen a una curva</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Páginas</translation>
    </message>
    <message>
        <source>Curves on the canvas</source>
        <translation>Curvas en el lienzo</translation>
    </message>
    <message>
        <source>Previous node</source>
        <translation>Nodo anterior</translation>
    </message>
    <message>
        <source>Next node</source>
        <translation>Nodo siguiente</translation>
    </message>
    <message>
        <source>Node index</source>
        <translation>Índice del nodo</translation>
    </message>
    <message>
        <source>Time or frame</source>
        <translation>Tiempo o fotograma</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Pre-behaviour</source>
        <translation>Comportamiento antes</translation>
    </message>
    <message>
        <source>Post-behaviour</source>
        <translation>Comportamiento después</translation>
    </message>
    <message>
        <source>Ease from</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Ease to</source>
        <translation>Llegada</translation>
    </message>
    <message>
        <source>Node type</source>
        <translation>Tipo de nodo</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Tensión</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Continuidad</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Sesgo</translation>
    </message>
    <message>
        <source>Outgoing tangent</source>
        <translation>Tangente saliente</translation>
    </message>
    <message>
        <source>Incoming tangent</source>
        <translation>Tangente entrante</translation>
    </message>
    <message>
        <source>Preview of the node parameters</source>
        <translation>Vista previa de los parámetros del nodo</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Expresión</translation>
    </message>
    <message>
        <source>Formula of t, then Return</source>
        <translation>Fórmula en t y luego Intro</translation>
    </message>
</context>
<context>
    <name>DecimalQuestion</name>
    <message>
        <source>Line %1 can be read in two ways. These are the rows from there on:</source>
        <translation>La línea %1 se puede leer de dos maneras. Estas son las filas a partir de ahí:</translation>
    </message>
    <message>
        <source>With a decimal comma:</source>
        <translation>Con coma decimal:</translation>
    </message>
    <message>
        <source>With a decimal point:</source>
        <translation>Con punto decimal:</translation>
    </message>
    <message>
        <source>Decimal comma</source>
        <translation>Coma decimal</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Punto decimal</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>EditingList</name>
    <message>
        <source>solo</source>
        <translation>sola</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>oculta</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>bloqueada</translation>
    </message>
    <message>
        <source>Shows this curve alone, or with others that are marked so (Shift+H)</source>
        <translation>Muestra solo esta curva, o junto con otras marcadas así (Mayús+H)</translation>
    </message>
    <message>
        <source>The application hides this curve</source>
        <translation>La aplicación oculta esta curva</translation>
    </message>
    <message>
        <source>Hides this curve (H)</source>
        <translation>Oculta esta curva (H)</translation>
    </message>
    <message>
        <source>The application has locked this curve</source>
        <translation>La aplicación ha bloqueado esta curva</translation>
    </message>
    <message>
        <source>Locks this curve against edits (L)</source>
        <translation>Bloquea esta curva para que no se edite (L)</translation>
    </message>
    <message>
        <source>Open a curve with +</source>
        <translation>Abra una curva con +</translation>
    </message>
    <message>
        <source>formula</source>
        <translation>fórmula</translation>
    </message>
</context>
<context>
    <name>PanDialog</name>
    <message>
        <source>pan selection</source>
        <translation>Desplazar selección</translation>
    </message>
    <message>
        <source>Pan X</source>
        <translation>Desplazar X</translation>
    </message>
    <message>
        <source>Pan Y</source>
        <translation>Desplazar Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>units of time</source>
        <translation>unidades de tiempo</translation>
    </message>
    <message>
        <source>units of value</source>
        <translation>unidades de valor</translation>
    </message>
</context>
<context>
    <name>PointAccessible</name>
    <message>
        <source>Select</source>
        <translation>Seleccionar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Point %1 of %2, frame %3, value %4</source>
        <translation>Punto %1 de %2, fotograma %3, valor %4</translation>
    </message>
    <message>
        <source>Point %1 of %2, time %3, value %4</source>
        <translation>Punto %1 de %2, tiempo %3, valor %4</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>Eliminar un punto de %1</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>Eliminar %1 puntos de %2</translation>
    </message>
</context>
<context>
    <name>PointCommands</name>
    <message>
        <source>Nudge a point of %1</source>
        <translation>Mover un poco un punto de %1</translation>
    </message>
    <message>
        <source>Nudge %1 points of %2</source>
        <translation>Mover un poco %1 puntos de %2</translation>
    </message>
    <message>
        <source>Cut points of %1</source>
        <translation>Cortar puntos de %1</translation>
    </message>
    <message>
        <source>Paste points</source>
        <translation>Pegar puntos</translation>
    </message>
    <message>
        <source>Paste points into %1</source>
        <translation>Pegar puntos en %1</translation>
    </message>
    <message>
        <source>Duplicate points of %1</source>
        <translation>Duplicar puntos de %1</translation>
    </message>
    <message>
        <source>Insert a point on %1</source>
        <translation>Insertar un punto en %1</translation>
    </message>
    <message>
        <source>Flatten a point of %1</source>
        <translation>Aplanar un punto de %1</translation>
    </message>
    <message>
        <source>Flatten %1 points of %2</source>
        <translation>Aplanar %1 puntos de %2</translation>
    </message>
    <message>
        <source>Align the tangents of a point of %1</source>
        <translation>Alinear las tangentes de un punto de %1</translation>
    </message>
    <message>
        <source>Align the tangents of %1 points of %2</source>
        <translation>Alinear las tangentes de %1 puntos de %2</translation>
    </message>
    <message>
        <source>Smooth a point of %1</source>
        <translation>Suavizar un punto de %1</translation>
    </message>
    <message>
        <source>Smooth %1 points of %2</source>
        <translation>Suavizar %1 puntos de %2</translation>
    </message>
    <message>
        <source>Moved there, the points would lie beyond all times.</source>
        <translation>Movidos allí, los puntos quedarían más allá de todo tiempo.</translation>
    </message>
    <message>
        <source>Replace points of %1</source>
        <translation>Reemplazar puntos de %1</translation>
    </message>
    <message>
        <source>Ease a point of %1</source>
        <translation>Suavizar la aceleración en un punto de %1</translation>
    </message>
    <message>
        <source>Ease %1 points of %2</source>
        <translation>Suavizar la aceleración en %1 puntos de %2</translation>
    </message>
    <message>
        <source>Ease: %1 may have no Bezier points</source>
        <translation>Aceleración: %1 no puede tener puntos Bézier</translation>
    </message>
    <message>
        <source>Ease: a level segment has no step, and is straight now</source>
        <translation>Aceleración: un segmento horizontal no tiene salto; ahora es recto</translation>
    </message>
    <message>
        <source>Ease: deviates by at most %1 % of the step</source>
        <translation>Aceleración: se desvía como máximo un %1 % del salto</translation>
    </message>
    <message>
        <source>Ease: exact</source>
        <translation>Aceleración: exacta</translation>
    </message>
    <message>
        <source>%1; an eased Tcb segment beside it has bent</source>
        <translation>%1; un segmento Tcb contiguo con salida o llegada se ha deformado</translation>
    </message>
    <message>
        <source>Ease: select both ends of a segment that is not vertical</source>
        <translation>Aceleración: seleccione ambos extremos de un segmento que no sea vertical</translation>
    </message>
    <message>
        <source>Ease: the application has changed the result</source>
        <translation>Aceleración: la aplicación ha cambiado el resultado</translation>
    </message>
</context>
<context>
    <name>PointText</name>
    <message>
        <source>The text holds no points.</source>
        <translation>El texto no contiene puntos.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no column of points.</source>
        <translation>«%1» no es una columna de puntos.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is there twice.</source>
        <translation>La columna «%1» está repetida.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is missing.</source>
        <translation>Falta la columna «%1».</translation>
    </message>
    <message>
        <source>More than %1 points.</source>
        <translation>Más de %1 puntos.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no type of a point.</source>
        <translation>«%1» no es un tipo de punto.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number that a point can have.</source>
        <translation>«%1» no es un número que pueda tener un punto.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Línea %1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways.</source>
        <translation>«%1» se puede leer de dos maneras.</translation>
    </message>
    <message>
        <source>A quotation mark has no partner.</source>
        <translation>Unas comillas no tienen pareja.</translation>
    </message>
    <message>
        <source>The line is too long.</source>
        <translation>La línea es demasiado larga.</translation>
    </message>
    <message>
        <source>Numbers expected: %2, found: %1.</source>
        <translation>Números esperados: %2, encontrados: %1.</translation>
    </message>
    <message>
        <source>Rows expected: %2, found: %1.</source>
        <translation>Filas esperadas: %2, encontradas: %1.</translation>
    </message>
</context>
<context>
    <name>PointType</name>
    <message>
        <source>Linear</source>
        <translation>Lineal</translation>
    </message>
    <message>
        <source>Linear node</source>
        <translation>Nodo lineal</translation>
    </message>
    <message>
        <source>Linear point</source>
        <translation>Punto lineal</translation>
    </message>
    <message>
        <source>Selection to Linear</source>
        <translation>Selección a lineal</translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation>Bézier</translation>
    </message>
    <message>
        <source>Bezier node</source>
        <translation>Nodo Bézier</translation>
    </message>
    <message>
        <source>Bezier point</source>
        <translation>Punto Bézier</translation>
    </message>
    <message>
        <source>Selection to Bezier</source>
        <translation>Selección a Bézier</translation>
    </message>
    <message>
        <source>Tcb</source>
        <translation>TCB</translation>
    </message>
    <message>
        <source>Tcb node</source>
        <translation>Nodo TCB</translation>
    </message>
    <message>
        <source>Tcb point</source>
        <translation>Punto TCB</translation>
    </message>
    <message>
        <source>Selection to Tcb</source>
        <translation>Selección a TCB</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Mantener</translation>
    </message>
    <message>
        <source>Hold node</source>
        <translation>Nodo Mantener</translation>
    </message>
    <message>
        <source>Hold point</source>
        <translation>Punto Mantener</translation>
    </message>
    <message>
        <source>Selection to Hold</source>
        <translation>Selección a Mantener</translation>
    </message>
</context>
<context>
    <name>ScaleDialog</name>
    <message>
        <source>scale selection</source>
        <translation>Escalar selección</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>Escala X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>Escala Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Pivot X</source>
        <translation>Pivote X</translation>
    </message>
    <message>
        <source>Pivot Y</source>
        <translation>Pivote Y</translation>
    </message>
    <message>
        <source>factor of times</source>
        <translation>factor de los tiempos</translation>
    </message>
    <message>
        <source>factor of values</source>
        <translation>factor de los valores</translation>
    </message>
    <message>
        <source>time that stays</source>
        <translation>tiempo que se mantiene</translation>
    </message>
    <message>
        <source>value that stays</source>
        <translation>valor que se mantiene</translation>
    </message>
</context>
<context>
    <name>TcbCurveFrame</name>
    <message>
        <source>Select one point to edit its numbers</source>
        <translation>Seleccione un punto para editar sus números</translation>
    </message>
    <message>
        <source>Open a curve with points to edit them here</source>
        <translation>Abra una curva con puntos para editarlos aquí</translation>
    </message>
</context>
<context>
    <name>TcbEditorForm</name>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Cambiar un número de un punto de %1</translation>
    </message>
</context>
<context>
    <name>ViewportSettings</name>
    <message>
        <source>viewPort Settings</source>
        <translation>Ajustes de la vista</translation>
    </message>
    <message>
        <source>MinX</source>
        <translation>X mín.</translation>
    </message>
    <message>
        <source>MinY</source>
        <translation>Y mín.</translation>
    </message>
    <message>
        <source>MaxX</source>
        <translation>X máx.</translation>
    </message>
    <message>
        <source>MaxY</source>
        <translation>Y máx.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>first time</source>
        <translation>primer tiempo</translation>
    </message>
    <message>
        <source>lowest value</source>
        <translation>valor mínimo</translation>
    </message>
    <message>
        <source>last time</source>
        <translation>último tiempo</translation>
    </message>
    <message>
        <source>highest value</source>
        <translation>valor máximo</translation>
    </message>
</context>
<context>
    <name>curveeditor::BakeDialog</name>
    <message>
        <source>Bake</source>
        <translation>Hornear</translation>
    </message>
    <message>
        <source>&amp;From frame</source>
        <translation>&amp;Desde el fotograma</translation>
    </message>
    <message>
        <source>&amp;From time</source>
        <translation>&amp;Desde el tiempo</translation>
    </message>
    <message>
        <source>&amp;To frame</source>
        <translation>&amp;Hasta el fotograma</translation>
    </message>
    <message>
        <source>&amp;To time</source>
        <translation>&amp;Hasta el tiempo</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <translation>&amp;Intervalo</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>&amp;Puntos</translation>
    </message>
    <message>
        <source>As few as the tolerance allows</source>
        <translation>Tan pocos como permita la tolerancia</translation>
    </message>
    <message>
        <source>To&amp;lerance</source>
        <translation>To&amp;lerancia</translation>
    </message>
    <message>
        <source>The times must be numbers.</source>
        <translation>Los tiempos deben ser números.</translation>
    </message>
    <message>
        <source>This takes too long. Fewer points may do.</source>
        <translation>Esto tarda demasiado. Quizá basten menos puntos.</translation>
    </message>
    <message>
        <source>The step must be greater than 0.</source>
        <translation>El paso debe ser mayor que 0.</translation>
    </message>
    <message>
        <source>The first time is later than the last.</source>
        <translation>El primer tiempo es posterior al último.</translation>
    </message>
    <message>
        <source>These are more than %1 points.</source>
        <translation>Son más de %1 puntos.</translation>
    </message>
    <message>
        <source>The curve has no value there.</source>
        <translation>La curva no tiene valor ahí.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Número de puntos: %1</translation>
    </message>
    <message>
        <source>%1 values become %2 points, at most %3 away.</source>
        <translation>%1 valores pasan a ser %2 puntos, a una distancia máxima de %3.</translation>
    </message>
    <message>
        <source>Bake %1</source>
        <translation>Hornear %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::CurveChooser</name>
    <message>
        <source>Curves to open</source>
        <translation>Curvas para abrir</translation>
    </message>
    <message>
        <source>There is no other curve</source>
        <translation>No hay ninguna otra curva</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>Filter of the curves to open</source>
        <translation>Filtro de las curvas para abrir</translation>
    </message>
    <message>
        <source>Curves that are not on the canvas</source>
        <translation>Curvas que no están en el lienzo</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; Return puts the chosen ones on the canvas</source>
        <translation>Muestra solo las curvas cuyos nombres contienen este texto; Intro pone las elegidas en el lienzo</translation>
    </message>
    <message>
        <source>Return or a double click puts the chosen curves on the canvas, Shift and Ctrl choose several</source>
        <translation>Intro o un doble clic pone las curvas elegidas en el lienzo; Mayús y Ctrl eligen varias</translation>
    </message>
</context>
<context>
    <name>curveeditor::EaseDialog</name>
    <message>
        <source>CSS ease</source>
        <translation>Aceleración CSS</translation>
    </message>
    <message>
        <source>x1 and x2 are numbers from 0 to 1, y1 and y2 from %1 to %2.</source>
        <translation>x1 y x2 son números de 0 a 1; y1 e y2, de %1 a %2.</translation>
    </message>
    <message>
        <source>Points added to a segment: %1</source>
        <translation>Puntos añadidos a un segmento: %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditMenu</name>
    <message>
        <source>Cut points</source>
        <translation>Cortar puntos</translation>
    </message>
    <message>
        <source>Copy points</source>
        <translation>Copiar puntos</translation>
    </message>
    <message>
        <source>Paste points at the time line</source>
        <translation>Pegar puntos en la línea de tiempo</translation>
    </message>
    <message>
        <source>Paste points where they were</source>
        <translation>Pegar puntos donde estaban</translation>
    </message>
    <message>
        <source>Duplicate points</source>
        <translation>Duplicar puntos</translation>
    </message>
    <message>
        <source>Edit all curves at once</source>
        <translation>Editar todas las curvas a la vez</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Seleccionar todos los puntos</translation>
    </message>
    <message>
        <source>Select no point</source>
        <translation>No seleccionar ningún punto</translation>
    </message>
    <message>
        <source>Select the other points</source>
        <translation>Seleccionar los otros puntos</translation>
    </message>
    <message>
        <source>Select the next point too</source>
        <translation>Seleccionar también el punto siguiente</translation>
    </message>
    <message>
        <source>Select the previous point too</source>
        <translation>Seleccionar también el punto anterior</translation>
    </message>
    <message>
        <source>A frame later</source>
        <translation>Un fotograma después</translation>
    </message>
    <message>
        <source>A frame earlier</source>
        <translation>Un fotograma antes</translation>
    </message>
    <message>
        <source>A tenth of a grid line up</source>
        <translation>Una décima de línea de cuadrícula hacia arriba</translation>
    </message>
    <message>
        <source>A tenth of a grid line down</source>
        <translation>Una décima de línea de cuadrícula hacia abajo</translation>
    </message>
    <message>
        <source>A frame later, ten times</source>
        <translation>Diez fotogramas después</translation>
    </message>
    <message>
        <source>A frame earlier, ten times</source>
        <translation>Diez fotogramas antes</translation>
    </message>
    <message>
        <source>A tenth of a grid line up, ten times</source>
        <translation>Una línea de cuadrícula hacia arriba</translation>
    </message>
    <message>
        <source>A tenth of a grid line down, ten times</source>
        <translation>Una línea de cuadrícula hacia abajo</translation>
    </message>
    <message>
        <source>Move points</source>
        <translation>Mover puntos</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the mouse</source>
        <translation>Insertar un punto en la curva en el ratón</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the time line</source>
        <translation>Insertar un punto en la curva en la línea de tiempo</translation>
    </message>
    <message>
        <source>Tangents</source>
        <translation>Tangentes</translation>
    </message>
    <message>
        <source>Flatten</source>
        <translation>Aplanar</translation>
    </message>
    <message>
        <source>Align both sides</source>
        <translation>Alinear ambos lados</translation>
    </message>
    <message>
        <source>Smooth without overshoot</source>
        <translation>Suavizar sin rebasar</translation>
    </message>
    <message>
        <source>Simplify…</source>
        <translation>Simplificar…</translation>
    </message>
    <message>
        <source>Bake…</source>
        <translation>Hornear…</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>Ajuste</translation>
    </message>
    <message>
        <source>Snap while dragging (Ctrl: the other way)</source>
        <translation>Ajustar al arrastrar (Ctrl: al revés)</translation>
    </message>
    <message>
        <source>To frames</source>
        <translation>A fotogramas</translation>
    </message>
    <message>
        <source>To grid lines</source>
        <translation>A líneas de cuadrícula</translation>
    </message>
    <message>
        <source>To points</source>
        <translation>A puntos</translation>
    </message>
    <message>
        <source>To the time line</source>
        <translation>A la línea de tiempo</translation>
    </message>
    <message>
        <source>Show all curves</source>
        <translation>Mostrar todas las curvas</translation>
    </message>
    <message>
        <source>Show selected points or the curve</source>
        <translation>Mostrar los puntos seleccionados o la curva</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Time line a frame later</source>
        <translation>Línea de tiempo un fotograma después</translation>
    </message>
    <message>
        <source>Time line a frame earlier</source>
        <translation>Línea de tiempo un fotograma antes</translation>
    </message>
    <message>
        <source>Show the slope of the curve</source>
        <translation>Mostrar la pendiente de la curva</translation>
    </message>
    <message>
        <source>Lock the curve</source>
        <translation>Bloquear la curva</translation>
    </message>
    <message>
        <source>Hide the curve</source>
        <translation>Ocultar la curva</translation>
    </message>
    <message>
        <source>Show the curve alone</source>
        <translation>Mostrar solo la curva</translation>
    </message>
    <message>
        <source>Paste at the time line, replacing points</source>
        <translation>Pegar en la línea de tiempo reemplazando puntos</translation>
    </message>
    <message>
        <source>Keep handles in line</source>
        <translation>Mantener los tiradores alineados</translation>
    </message>
    <message>
        <source>Sine in</source>
        <translation>Seno al inicio</translation>
    </message>
    <message>
        <source>Sine out</source>
        <translation>Seno al final</translation>
    </message>
    <message>
        <source>Sine in and out</source>
        <translation>Seno en ambos extremos</translation>
    </message>
    <message>
        <source>Quadratic in</source>
        <translation>Cuadrática al inicio</translation>
    </message>
    <message>
        <source>Quadratic out</source>
        <translation>Cuadrática al final</translation>
    </message>
    <message>
        <source>Quadratic in and out</source>
        <translation>Cuadrática en ambos extremos</translation>
    </message>
    <message>
        <source>Cubic in</source>
        <translation>Cúbica al inicio</translation>
    </message>
    <message>
        <source>Cubic out</source>
        <translation>Cúbica al final</translation>
    </message>
    <message>
        <source>Cubic in and out</source>
        <translation>Cúbica en ambos extremos</translation>
    </message>
    <message>
        <source>Exponential in</source>
        <translation>Exponencial al inicio</translation>
    </message>
    <message>
        <source>Exponential out</source>
        <translation>Exponencial al final</translation>
    </message>
    <message>
        <source>Exponential in and out</source>
        <translation>Exponencial en ambos extremos</translation>
    </message>
    <message>
        <source>Back in</source>
        <translation>Retroceso al inicio</translation>
    </message>
    <message>
        <source>Back out</source>
        <translation>Retroceso al final</translation>
    </message>
    <message>
        <source>Back in and out</source>
        <translation>Retroceso en ambos extremos</translation>
    </message>
    <message>
        <source>Ease</source>
        <translation>Aceleración</translation>
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
        <translation>Escala propia para cada curva</translation>
    </message>
    <message>
        <source>Transform box</source>
        <translation>Caja de transformación</translation>
    </message>
    <message>
        <source>Retime…</source>
        <translation>Cambiar tiempos…</translation>
    </message>
    <message>
        <source>Pale image behind the curves</source>
        <translation>Imagen tenue detrás de las curvas</translation>
    </message>
    <message>
        <source>No point is selected.</source>
        <translation>No hay ningún punto seleccionado.</translation>
    </message>
    <message>
        <source>No point of the current curve is selected.</source>
        <translation>No hay ningún punto seleccionado de la curva actual.</translation>
    </message>
    <message>
        <source>The clipboard holds no points.</source>
        <translation>El portapapeles no contiene puntos.</translation>
    </message>
    <message>
        <source>The current curve shows no points.</source>
        <translation>La curva actual no muestra puntos.</translation>
    </message>
    <message>
        <source>The current curve does not show more than two points.</source>
        <translation>La curva actual no muestra más de dos puntos.</translation>
    </message>
    <message>
        <source>No curve that is shown is the current one.</source>
        <translation>La curva actual no se muestra.</translation>
    </message>
    <message>
        <source>The application does not allow that here.</source>
        <translation>La aplicación no lo permite aquí.</translation>
    </message>
    <message>
        <source>Draw into the curve (hold D)</source>
        <translation>Dibujar en la curva (mantener D)</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditingListPanel</name>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>Filter of the curves</source>
        <translation>Filtro de las curvas</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; the others stay on the canvas</source>
        <translation>Muestra solo las curvas cuyos nombres contienen este texto; las demás siguen en el lienzo</translation>
    </message>
    <message>
        <source>Open curves…</source>
        <translation>Abrir curvas…</translation>
    </message>
    <message>
        <source>Open curves</source>
        <translation>Abrir curvas</translation>
    </message>
    <message>
        <source>Puts curves on the canvas (Insert in the list)</source>
        <translation>Pone curvas en el lienzo (Insert en la lista)</translation>
    </message>
</context>
<context>
    <name>curveeditor::FitDialog</name>
    <message>
        <source>The tolerance must be a number, 0 or more.</source>
        <translation>La tolerancia debe ser un número, 0 o mayor.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>La curva está bloqueada.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>curveeditor::FreehandDrag</name>
    <message>
        <source>Draw %1</source>
        <translation>Dibujar %1</translation>
    </message>
    <message>
        <source>A formula can&apos;t be drawn.</source>
        <translation>Una fórmula no se puede dibujar.</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 está bloqueada.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Esto da puntos Bézier o lineales, que esta curva no puede tener.</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 está oculta.</translation>
    </message>
    <message>
        <source>The next drag draws; Escape forgets it.</source>
        <translation>El próximo arrastre dibuja; Escape lo olvida.</translation>
    </message>
</context>
<context>
    <name>curveeditor::NumbersForm</name>
    <message>
        <source>This is no number</source>
        <translation>Esto no es un número</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTableModel</name>
    <message>
        <source>Frame</source>
        <translation>Fotograma</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Tiempo</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Incoming</source>
        <translation>Entrante</translation>
    </message>
    <message>
        <source>Outgoing</source>
        <translation>Saliente</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>Tensión</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>Continuidad</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>Sesgo</translation>
    </message>
    <message>
        <source>Ease To</source>
        <translation>Llegada</translation>
    </message>
    <message>
        <source>Ease From</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>Cambiar el tipo de un punto de %1</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>Cambiar el tipo de %1 puntos de %2</translation>
    </message>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>Cambiar un número de un punto de %1</translation>
    </message>
    <message>
        <source>Change a number of %1 points of %2</source>
        <translation>Cambiar un número de %1 puntos de %2</translation>
    </message>
    <message>
        <source>No finite number was typed. The old one stays.</source>
        <translation>No se ha escrito ningún número finito. Se conserva el anterior.</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>La curva está bloqueada.</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTablePage</name>
    <message>
        <source>Points</source>
        <translation>Puntos</translation>
    </message>
    <message>
        <source>Points of the current curve</source>
        <translation>Puntos de la curva actual</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>Seleccionar todos los puntos</translation>
    </message>
    <message>
        <source>Selects all points of the current curve</source>
        <translation>Selecciona todos los puntos de la curva actual</translation>
    </message>
    <message>
        <source>What is typed into a cell goes to all selected rows</source>
        <translation>Lo que se escribe en una celda pasa a todas las filas seleccionadas</translation>
    </message>
    <message>
        <source>Open a curve with points to see them here</source>
        <translation>Abra una curva con puntos para verlos aquí</translation>
    </message>
</context>
<context>
    <name>curveeditor::RetimeDialog</name>
    <message>
        <source>Retime a point of %1</source>
        <translation>Cambiar el tiempo de un punto de %1</translation>
    </message>
    <message>
        <source>Retime %1 points of %2</source>
        <translation>Cambiar los tiempos de %1 puntos de %2</translation>
    </message>
    <message>
        <source>Retime</source>
        <translation>Cambiar tiempos</translation>
    </message>
    <message>
        <source>&amp;Time factor</source>
        <translation>Factor de &amp;tiempo</translation>
    </message>
    <message>
        <source>&amp;Value factor</source>
        <translation>Factor de &amp;valor</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Alrededor de</translation>
    </message>
    <message>
        <source>The first point</source>
        <translation>El primer punto</translation>
    </message>
    <message>
        <source>The curve at the time line</source>
        <translation>La curva en la línea de tiempo</translation>
    </message>
    <message>
        <source>The middle</source>
        <translation>El centro</translation>
    </message>
    <message>
        <source>The factors must be numbers, that of the times not 0.</source>
        <translation>Los factores deben ser números; el de tiempo no puede ser 0.</translation>
    </message>
    <message>
        <source>A curve has changed meanwhile and stays as it is.</source>
        <translation>Una curva ha cambiado mientras tanto y se queda como está.</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>Número de puntos: %1</translation>
    </message>
    <message>
        <source>A single point keeps its place, unless it is retimed about the time line.</source>
        <translation>Un solo punto conserva su lugar, salvo alrededor de la línea de tiempo.</translation>
    </message>
</context>
<context>
    <name>curveeditor::ShrinkingBox</name>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
</context>
<context>
    <name>curveeditor::SimplifyDialog</name>
    <message>
        <source>Simplify %1</source>
        <translation>Simplificar %1</translation>
    </message>
    <message>
        <source>Simplify</source>
        <translation>Simplificar</translation>
    </message>
    <message>
        <source>&amp;Tolerance</source>
        <translation>&amp;Tolerancia</translation>
    </message>
    <message>
        <source>&amp;Keep rising and falling parts so</source>
        <translation>&amp;Mantener los tramos crecientes y decrecientes</translation>
    </message>
    <message>
        <source>The curve has changed meanwhile and stays as it is.</source>
        <translation>La curva ha cambiado mientras tanto y se queda como está.</translation>
    </message>
    <message>
        <source>No fewer than %1 points are within this tolerance.</source>
        <translation>Con menos de %1 puntos no se cumple esta tolerancia.</translation>
    </message>
    <message>
        <source>%1 points of the selected part become %2, at most %3 away.</source>
        <translation>%1 puntos de la parte seleccionada pasan a ser %2, a una distancia máxima de %3.</translation>
    </message>
    <message>
        <source>%1 points become %2, at most %3 away.</source>
        <translation>%1 puntos pasan a ser %2, a una distancia máxima de %3.</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>Esto da puntos Bézier o lineales, que esta curva no puede tener.</translation>
    </message>
</context>
<context>
    <name>curveeditor::TransformBox</name>
    <message>
        <source>That would leave points without a time or a value.</source>
        <translation>Así quedarían puntos sin tiempo o sin valor.</translation>
    </message>
    <message>
        <source>Nothing that can be edited is selected.</source>
        <translation>No hay nada seleccionado que se pueda editar.</translation>
    </message>
    <message>
        <source>A transform box takes points at two times or two values.</source>
        <translation>Una caja de transformación necesita puntos en dos tiempos o con dos valores.</translation>
    </message>
    <message>
        <source>Edges scale, with Shift about the middle; the inside moves; Return ends it.</source>
        <translation>Los bordes escalan, con Mayús desde el centro; el interior mueve; Intro termina.</translation>
    </message>
    <message>
        <source>Move a point of %1</source>
        <translation>Mover un punto de %1</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>Mover %1 puntos de %2</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>Escalar un punto de %1</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>Escalar %1 puntos de %2</translation>
    </message>
    <message>
        <source>A Tcb segment beside points that are not selected may bend.</source>
        <translation>Junto a puntos no seleccionados, un tramo TCB puede deformarse.</translation>
    </message>
</context>
</TS>
