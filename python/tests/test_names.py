# SPDX-License-Identifier: MIT
"""Every function of the public headers has its name in Python, or a reason for having none."""
import inspect
import re
from functools import reduce
from pathlib import Path

import curveeditor
import pytest

SOURCES = Path(__file__).resolve().parents[2] / "curveeditor"

BOUND = {
    "model/CurveDiff.h": "CurveDiff=CurveDiff apply=CurveDiff.apply between=CurveDiff.between formulaAfter=CurveState.formula"
    " formulaBefore=CurveState.formula influenceOf=Spline.influence inverse=CurveDiff.inverse isEmpty=CurveDiff.is_empty"
    " kindAfter=CurveState.formula kindBefore=CurveState.formula pointsAfter=CurveDiff.points_after"
    " pointsBefore=CurveDiff.points_before revert=CurveDiff.revert toString=CurveDiff.__str__ touched=CurveDiff.touched",
    "model/CurveFit.h": "bake=bake fit=fit jumpsOf=jumps simplify=simplify smoothSlope=smooth_slope",
    "model/CurveKeys.h": "fromSpline=Keys.of setEase=Keys.set_ease toSpline=Keys.to_spline",
    "model/CurveSnapshot.h": "CurveSnapshot=Snapshot call=Snapshot.__call__ evaluate=Snapshot.__call__ of=Spline.snapshot",
    "model/CurveVariables.h": "CurveVariables=Variables add=Variables.add getExpression=Variables.__getitem__"
    " getValue=Formula.__call__ getValues=Formula.__call__ remove=Variables.remove rename=Variables.rename",
    "model/EvaluationTime.h": "EvaluationTime=Formula.__call__ set=Formula.__call__",
    "model/FunctionFloatBase.h": "FunctionFloatBase=Formula evaluate=Formula.__call__ evaluateBlock=Formula.__call__"
    " getString=Formula.__str__",
    "model/FunctionParserBase.h": "getAllVars=Formula.names parseString=Formula.__init__ setVarMapper=Formula.__init__",
    "model/ParseMessage.h": "ParseMessage=FormulaError",
    "model/ParserVarMapper.h": "ParserVarMapper=Variables getExpression=Variables.__getitem__ getValue=Formula.__call__"
    " getValues=Formula.__call__ hasName=Variables.__contains__ getStoredName=Variables.__iter__",
    "model/SplineBase.h": "SplineBase=Spline addPoint=Spline.add assign=Spline.assign call=Spline.__call__"
    " evaluate=Spline.__call__ find=Point.index findIndex=Spline.find getControlPoints=Spline.__iter__"
    " getControlPointsNumber=Spline.__len__ getDefaultValue=Spline.default_value getFirst=Spline.__getitem__"
    " getLast=Spline.__getitem__ getNext=Spline.next getPrev=Spline.previous getTangentLeftAtNode=Spline.tangent_left"
    " getTangentRightAtNode=Spline.tangent_right load=Spline.from_text modify=Spline.__getitem__ remove=Spline.remove"
    " reset=Spline.reset save=Spline.to_text setDefaultValue=Spline.default_value setPos=Point.value"
    " setTanLeft=Point.tan_left setTanRight=Point.tan_right setTime=Point.time slope=Spline.slope state=Spline.state"
    " copyTo=Spline.state",
    "model/SplineState.h": "fingerprint=SplineState.fingerprint fingerprintOf=SplineState.fingerprint"
    " isSamePoint=SplineState.__eq__",
    "files/CurveFile.h": "read=CurveFile.read write=CurveFile.write",
    "files/FileReplacement.h": "write=replace_file",
    "files/SensorTable.h": "head=sensor_table_head row=sensor_table_row",
    "files/TableReader.h": "TableReader=read_table names=Table.names line=Table.lines readAll=read_table",
}
EDITOR = {
    "shell/Translations.h": "installCurveEditorTranslation=install_translation",
    "shell/CurveEditor.h": "CurveEditor=CurveEditor cleanSelecteds=CurveEditor.close_curves"
    " completeViewport=CurveEditor.show_all completeViewportH=CurveEditor.show_all_times"
    " completeViewportV=CurveEditor.show_all_values deleteExpression=CurveEditor.delete_formula getFps=CurveEditor.fps"
    " isModeFrames=CurveEditor.shows_frames isModeTime=CurveEditor.shows_frames removeNode=CurveEditor.remove_group"
    " renameNode=CurveEditor.rename_group resetAllCheckedF=CurveEditor.reset_all"
    " resetSelectedF=CurveEditor.reset_current resetViewport=CurveEditor.reset_view"
    " setDefaultSelected=CurveEditor.open_curve setEditingNode=CurveEditor.open_curve"
    " setMaxValue=CurveEditor.set_maximum setMinValue=CurveEditor.set_minimum setShowFrames=CurveEditor.show_frames"
    " setShowTime=CurveEditor.show_time setVisible=CurveEditor.widget",
    "canvas/CurveEditorTheme.h": "dark=Theme.dark described=Theme.described fromPalette=Theme.from_palette light=Theme.light",
    "edit/PlaneMapping.h": "PlaneMapping=PlaneMapping column=PlaneMapping.column row=PlaneMapping.row"
    " timeAt=PlaneMapping.time_at valueAt=PlaneMapping.value_at",
}
LACKING = {
    "shell/CurveEditor.h": (
        "MainNodeStruct NodeStruct searchAllNodeList searchAllNodeListCurveName searchMainNode checkDependencies"
        " setMainNodePixmap emitSignalCurveHasChanged exportSensorData languageChange QString"
        # the texts, rows and buttons of the dialog, which the user works with
        " deleteCurveClicked doubleClickedItem errorClosed executeCommand insertBinaryFunc insertDVarFunc insertIVarFunc"
        " insertTernaryFunc insertUnaryFunc pressedEditingItem pressedItem pressedSpaceItem refreshCommandLine"
        " rightButtonPressedEditingItem rightButtonPressedItem selectionChangedEditingItem setAllNodeListUnselected"
        " setExpression setFuncPosInfo setPosInfo setTcb slotMenuEditingNodeColor slotMenuEditingNodeRemove"
        " slotRemoveFromEditing"
        # actions, which `action` gives
        " loadFile loadImage saveFile setPanSelection setRange setScaleSelection"
        # of the current curve: written to the spline
        " changeNodeFirstType changeNodeLastType setFirstNodeConstant setFirstNodeZero setLastNodeConstant"
        " setLastNodeFollowTangent setLastNodeLoop setLastNodeLoopOffset setLastNodeZero"
        # single colours of the theme
        " setCanvasColor setControlPointColor setControlPointSelectedColor setControllerColor setControllerSelectedColor"
        " setFrameFontColor setFrameHLineColor setFrameLinesColor setFrameVLineColor setSelectionColor setTimeLineColor",
        "the dialog's own, or told in other ways",
    ),
    "canvas/CurveEditorTheme.h": ("QColor QStringLiteral bounded", "set_theme bounds"),
    "canvas/DecimalQuestion.h": ("askForDecimal", "read_table raises, so the application asks in its own words"),
    "shell/CurveChange.h": ("Q_DECLARE_METATYPE", "Qt's own"),
    "shell/Translations.h": ("QLocale", "Qt's own"),
    "edit/PlaneMapping.h": (
        "canShow pixelColumn pixelRect pixelRow pixelSlope shareOfHeight shareOfWidth timeOfPixels timeSpan valueOfPixels"
        " valueSpan",
        "painters of Python reckon in float",
    ),
    "model/CurveDiff.h": (
        "TimeInterval everything unite pointsShift",
        "times come as tuples",
    ),
    "model/CurveFit.h": ("isDone message", "what can't be fitted raises, with the message"),
    "model/CurveKeys.h": ("isWhole", "keys that are not whole are not made"),
    "model/FunctionFloatBase.h": (
        "getBinaryRef getConstantRef getTernaryRef getUnaryRef getVariableBoolRef getVariableDoubleRef"
        " getVariableFloatRef getVariableIntRef isBinary isConstant isTernary isUnary isVariableBool isVariableDouble"
        " isVariableFloat isVariableInt",
        "the nodes of a formula are seen as its text alone",
    ),
    "model/FunctionParserBase.h": (
        "FunctionParserBase instance getKey getVarMapper getValue setValue toInt holdsDouble",
        "each formula is given its variables",
    ),
    "model/ParserVarMapper.h": ("getNameLength getType", "variables are not derived in Python"),
    "model/SplineBase.h": ("mend", "points are written by what keeps them in order"),
    "model/SplineState.h": ("isEarlierPoint isWhole", "states that are not whole are not made"),
    "files/CurveFile.h": (
        "readColor readKind readSpline readExpression writeColor writeSpline writeExpression",
        "a file is read and written whole",
    ),
    "files/FileReplacement.h": ("isSaved", "the text of the exception tells"),
    "files/FormulaFault.h": ("formulaFault", "the text of FormulaError"),
    "files/TableReader.h": (
        "fault fields hasHead message next number place",
        "a table is read whole, or raises",
    ),
    "files/TextFields.h": (
        "inQuotes isWhiteSpace number printable shortened split takeLine trimmed withoutByteOrderMark",
        "Python has its own",
    ),
}
# Of the dialog and its windows themselves, where PyQt6 sees a QDialog.
UNSEEN = {"shell/CurveEditorDialogBase.h", "shell/PanDialog.h", "shell/ScaleDialog.h", "shell/ViewportSettings.h"}
FIELDS = {
    "canvas/CurveEditorTheme.h": "Theme",
    "edit/CurveOptions.h": "CurveOptions",
    "edit/PlaneMapping.h": "PlaneMapping",
    "shell/CurveChange.h": "CurveChange",
}
NODES = re.compile(r"model/FunctionFloat(?!Base)")  # as the nodes in FunctionFloatBase.h
NOISE = set("double float int bool void if while for return sizeof static_cast".split())


def snake(name):
    return re.sub("(?<!^)([A-Z])", r"_\1", name).lower()


def public_text(header):
    text = re.sub(r"//.*|^\s*#.*(?:\\\n.*)*", "", header.read_text(encoding="utf-8"), flags=re.M)
    text = re.sub(r"^(?:private|protected):.*?(?=^public:|^};)", "", text, flags=re.M | re.S)
    bodies = 1
    while bodies:
        text, bodies = re.subn(r"\)([\w\s]*)\{[^{}]*\}", r")\1;", text)
    return text


def fields_of(text):
    return set(re.findall(r"^ +(?!using|return|friend)[\w:<>]+(?: [\w:<>]+)?\s+(\w+)\s*(?:=[^;]*)?;", text, re.M)) - {"operator"}


def functions_of(text):
    text = re.sub(r"operator\(\)\s*\(", "call(", text)
    return set(re.findall(r"(?<![~:.>])\b([A-Za-z_]\w*)\s*\(", text)) - NOISE


def headers_in(variable):
    lists = (SOURCES / "CMakeLists.txt").read_text(encoding="utf-8")
    return [name for name in re.search(rf"set\({variable}\s+(.*?)\)", lists, re.S)[1].split() if not NODES.match(name)]


@pytest.mark.parametrize("header", headers_in("model_headers"))
def test_all_functions_are_bound(header):
    bound = dict(pair.split("=") for pair in BOUND.get(header, "").split())
    lacking = set(LACKING.get(header, ("", ""))[0].split())
    assert functions_of(public_text(SOURCES / header)) == set(bound) | lacking
    assert not set(bound) & lacking
    for name in bound.values():
        reduce(getattr, name.split("."), curveeditor)


@pytest.mark.parametrize("header", sorted(set(headers_in("editor_headers")) - UNSEEN))
def test_all_functions_of_the_editor_are_bound(header):
    pytest.importorskip("PyQt6.QtWidgets")
    qt = pytest.importorskip("curveeditor.qt")
    offered = {**qt.CurveEditor.__annotations__, **{name: 0 for name in dir(qt.CurveEditor)}}
    bound = dict(pair.split("=") for pair in EDITOR.get(header, "").split())
    for name in bound.values():
        reduce(getattr, name.split("."), qt)
    text = public_text(SOURCES / header)
    functions = functions_of(text)
    same = {name for name in functions if header == "shell/CurveEditor.h" and snake(name) in offered}
    assert functions - same == set(bound) | set(LACKING.get(header, ("",))[0].split())
    if header in FIELDS:
        kind = getattr(qt, FIELDS[header])
        assert {snake(name) for name in fields_of(text)} == {name for name, value in vars(kind).items() if isinstance(value, property)}
    for name, members in re.findall(r"^ *enum class (\w+) *\{([^}]*)\}", text, re.M):
        enumeration = getattr(qt, name, None) or getattr(getattr(qt, FIELDS[header]), name)
        assert [snake(member).upper() for member in re.findall(r"\w+", members)] == list(enumeration.__members__)


def test_all_names_are_offered():
    model = {name for name in dir(curveeditor._model) if not name.startswith("_")}
    assert set(curveeditor.__all__) == model
    project = (SOURCES.parent / "CMakeLists.txt").read_text(encoding="utf-8")
    assert curveeditor.__version__ == re.search(r"project\(CurveEditor VERSION ([\d.]+)", project)[1]


@pytest.mark.parametrize("module", ["curveeditor", "curveeditor.qt"])
def test_all_names_have_words(module):
    if module == "curveeditor.qt":
        pytest.importorskip("PyQt6.QtWidgets")
    module = pytest.importorskip(module)
    kinds = [kind for kind in vars(module).values() if inspect.isclass(kind) and kind.__module__.startswith("curveeditor")]
    assert len(kinds) > 5
    bare = [kind.__name__ for kind in kinds if not kind.__doc__ or kind.__doc__ == "An enumeration."]
    for kind in kinds:
        for name, value in vars(kind).items():
            words = (value.__doc__ or "").strip() if isinstance(value, property) or callable(value) else "-"
            own = not name.startswith("_") and not (hasattr(kind, "__members__") and name in ("name", "value"))
            if own and (not words or "(self: " in words and "\n" not in words):
                bare.append(f"{kind.__name__}.{name}")
    assert bare == []
