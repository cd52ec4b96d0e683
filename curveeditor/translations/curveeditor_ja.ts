<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>CanvasAccessible</name>
    <message>
        <source>Canvas without a curve</source>
        <translation>キャンバス、カーブなし</translation>
    </message>
    <message>
        <source>Canvas, curve %1</source>
        <translation>キャンバス、カーブ %1</translation>
    </message>
    <message>
        <source>%1 points, %2 selected</source>
        <translation>ポイント %1 個、選択 %2 個</translation>
    </message>
    <message>
        <source>Formula %1</source>
        <translation>式 %1</translation>
    </message>
</context>
<context>
    <name>CanvasEdit</name>
    <message>
        <source>%1 curves</source>
        <translation>%1 本のカーブ</translation>
    </message>
</context>
<context>
    <name>CanvasFunctionBase</name>
    <message>
        <source>Variable %1 not found</source>
        <translation>変数 %1 が見つかりません</translation>
    </message>
    <message>
        <source>Unmatched parenthesis</source>
        <translation>括弧の対応が取れていません</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>The formula of %1 can&apos;t be read any more:
%2</source>
        <translation>%1 の式を読み取れなくなりました:
%2</translation>
    </message>
    <message>
        <source>Delete the formula of %1</source>
        <translation>%1 の式を削除</translation>
    </message>
    <message>
        <source>Show the spline of %1</source>
        <translation>%1 のスプラインを表示</translation>
    </message>
    <message>
        <source>Show the formula of %1</source>
        <translation>%1 の式を表示</translation>
    </message>
    <message>
        <source>Reset all curves</source>
        <translation>すべてのカーブをリセット</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>%1 をリセット</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <translation>構文エラー</translation>
    </message>
    <message>
        <source>Enter the formula of %1</source>
        <translation>%1 の式を入力</translation>
    </message>
    <message>
        <source>Cyclical dependency</source>
        <translation>循環依存</translation>
    </message>
    <message>
        <source>Cyclical dependency has been found for d-var %1 </source>
        <translation>従属変数 %1 で循環依存が見つかりました</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 を読み込み</translation>
    </message>
    <message>
        <source>Change the start behaviour of %1</source>
        <translation>%1 の開始動作を変更</translation>
    </message>
    <message>
        <source>Change the end behaviour of %1</source>
        <translation>%1 の終了動作を変更</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>%1 のポイントを削除</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>%2 のポイント %1 個を削除</translation>
    </message>
    <message>
        <source>Add a point to %1</source>
        <translation>%1 にポイントを追加</translation>
    </message>
    <message>
        <source>Change the type of points</source>
        <translation>ポイントの種類を変更</translation>
    </message>
    <message>
        <source>Delete points</source>
        <translation>ポイントを削除</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>%1 のポイントをスケール</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>%2 のポイント %1 個をスケール</translation>
    </message>
    <message>
        <source>Pan a point of %1</source>
        <translation>%1 のポイントをずらす</translation>
    </message>
    <message>
        <source>Pan %1 points of %2</source>
        <translation>%2 のポイント %1 個をずらす</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 はロックされています。</translation>
    </message>
    <message>
        <source>The application has locked %1.</source>
        <translation>アプリケーションが %1 をロックしています。</translation>
    </message>
    <message>
        <source>The application hides %1.</source>
        <translation>アプリケーションが %1 を非表示にしています。</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 は非表示です。</translation>
    </message>
    <message>
        <source>%1 is seen alone.</source>
        <translation>%1 だけを表示しています。</translation>
    </message>
</context>
<context>
    <name>CanvasHands</name>
    <message>
        <source>Move a point of %1</source>
        <translation>%1 のポイントを移動</translation>
    </message>
    <message>
        <source>Change a tangent of %1</source>
        <translation>%1 の接線を変更</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>%2 のポイント %1 個を移動</translation>
    </message>
</context>
<context>
    <name>CanvasPicture</name>
    <message>
        <source>Drop the name of a curve on the list to edit it here</source>
        <translation>カーブの名前をリストにドロップすると、ここで編集できます</translation>
    </message>
    <message>
        <source>Double-click to add a point</source>
        <translation>ダブルクリックでポイントを追加</translation>
    </message>
    <message>
        <source>Slope %1</source>
        <translation>傾き %1</translation>
    </message>
    <message>
        <source>Own scale</source>
        <translation>カーブごとの目盛り</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>ロック中</translation>
    </message>
    <message>
        <source>All curves</source>
        <translation>すべてのカーブ</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>スナップ</translation>
    </message>
    <message>
        <source>All points of this curve lie outside the range that is set under &quot;Options&quot;</source>
        <translation>このカーブのポイントはすべて、「オプション」で設定された範囲の外にあります</translation>
    </message>
</context>
<context>
    <name>ControlMenu</name>
    <message>
        <source>Create key</source>
        <translation>キーを作成</translation>
    </message>
    <message>
        <source>Delete key</source>
        <translation>キーを削除</translation>
    </message>
</context>
<context>
    <name>ControlMenu2</name>
    <message>
        <source>Remove from editing list</source>
        <translation>編集リストから外す</translation>
    </message>
    <message>
        <source>Change color</source>
        <translation>色を変更</translation>
    </message>
</context>
<context>
    <name>ControlSplineNode</name>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>%1 のポイントの種類を変更</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>%2 のポイント %1 個の種類を変更</translation>
    </message>
</context>
<context>
    <name>CurveEditor</name>
    <message>
        <source>Canvas</source>
        <translation>キャンバス</translation>
    </message>
    <message>
        <source>Horizontal axis</source>
        <translation>横軸</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Curves</source>
        <translation>カーブ</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source> Fit </source>
        <translation> 全体表示 </translation>
    </message>
    <message>
        <source> Fit H </source>
        <translation> 横全体 </translation>
    </message>
    <message>
        <source> Fit V </source>
        <translation> 縦全体 </translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>ずらす</translation>
    </message>
    <message>
        <source>Unary functions</source>
        <translation>単項関数</translation>
    </message>
    <message>
        <source>Binary functions</source>
        <translation>二項関数</translation>
    </message>
    <message>
        <source>Ternary functions</source>
        <translation>三項関数</translation>
    </message>
    <message>
        <source>I vars</source>
        <translation>独立変数</translation>
    </message>
    <message>
        <source>D vars</source>
        <translation>従属変数</translation>
    </message>
    <message>
        <source>Frame:</source>
        <translation>フレーム:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>時間:</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>解析された式です</translation>
    </message>
    <message>
        <source>Reset All Checked Curves</source>
        <translation>選択したカーブをすべてリセット</translation>
    </message>
    <message>
        <source>Reset curve</source>
        <translation>カーブをリセット</translation>
    </message>
    <message>
        <source>Load curve</source>
        <translation>カーブを読み込む</translation>
    </message>
    <message>
        <source>Save curve</source>
        <translation>カーブを保存</translation>
    </message>
    <message>
        <source>Set Range</source>
        <translation>範囲を設定</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>表示をリセット</translation>
    </message>
    <message>
        <source>Load image</source>
        <translation>画像を読み込む</translation>
    </message>
    <message>
        <source>Clear image</source>
        <translation>画像を消去</translation>
    </message>
    <message>
        <source>Fit View</source>
        <translation>全体を表示</translation>
    </message>
    <message>
        <source>Fit Horizontal View</source>
        <translation>横方向の全体を表示</translation>
    </message>
    <message>
        <source>Fit Vertical View</source>
        <translation>縦方向の全体を表示</translation>
    </message>
    <message>
        <source>Scale selection</source>
        <translation>選択をスケール</translation>
    </message>
    <message>
        <source>Pan selection</source>
        <translation>選択をずらす</translation>
    </message>
    <message>
        <source>Show time</source>
        <translation>時間を表示</translation>
    </message>
    <message>
        <source>Show frames</source>
        <translation>フレームを表示</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>ゼロ</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>一定</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>オフセット付きループ</translation>
    </message>
    <message>
        <source>Follow tangent</source>
        <translation>接線に従う</translation>
    </message>
    <message>
        <source>Start Node Behaviour</source>
        <translation>開始ノードの動作</translation>
    </message>
    <message>
        <source>Last Node Behaviour</source>
        <translation>終了ノードの動作</translation>
    </message>
    <message>
        <source>Horizontal axis mode</source>
        <translation>横軸のモード</translation>
    </message>
    <message>
        <source>Reset all the checked curves</source>
        <translation>選択したカーブをすべてリセットします</translation>
    </message>
    <message>
        <source>Reset the current editing curve</source>
        <translation>現在のカーブをリセットします</translation>
    </message>
    <message>
        <source>Open previously saved curve</source>
        <translation>保存したカーブを開きます</translation>
    </message>
    <message>
        <source>Save the current curve</source>
        <translation>現在のカーブを保存します</translation>
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
        <translation>カーブのリセット、読み込み、保存を行います</translation>
    </message>
    <message>
        <source>Chooses the current curve among those on the canvas</source>
        <translation>キャンバス上のカーブから現在のカーブを選びます</translation>
    </message>
    <message>
        <source>Sets the view, the background image and the curve outside its nodes</source>
        <translation>表示、背景画像、ノードの外側のカーブを設定します</translation>
    </message>
    <message>
        <source>Takes edits back, and works on the selected points and the view</source>
        <translation>編集の取り消しと、選択したポイントや表示の操作を行います</translation>
    </message>
    <message>
        <source>Makes the expression the argument of a function</source>
        <translation>式を関数の引数にします</translation>
    </message>
    <message>
        <source>Joins the expression with a second operand</source>
        <translation>式を 2 つ目のオペランドと結びます</translation>
    </message>
    <message>
        <source>Makes the expression one of the two that a condition chooses from</source>
        <translation>式を、条件が選ぶ 2 つの式の一方にします</translation>
    </message>
    <message>
        <source>Inserts the time or the frame number</source>
        <translation>時間またはフレーム番号を挿入します</translation>
    </message>
    <message>
        <source>Inserts the value of another curve</source>
        <translation>ほかのカーブの値を挿入します</translation>
    </message>
    <message>
        <source>Shows the whole current curve</source>
        <translation>現在のカーブ全体を表示します</translation>
    </message>
    <message>
        <source>Shows all times of the current curve</source>
        <translation>現在のカーブのすべての時間を表示します</translation>
    </message>
    <message>
        <source>Shows all values of the current curve</source>
        <translation>現在のカーブのすべての値を表示します</translation>
    </message>
    <message>
        <source>Scales the selected points by two factors</source>
        <translation>選択したポイントを 2 つの倍率でスケールします</translation>
    </message>
    <message>
        <source>Moves the selected points by two distances</source>
        <translation>選択したポイントを 2 つの距離だけずらします</translation>
    </message>
    <message>
        <source>Time or frame at the mouse</source>
        <translation>マウス位置の時間またはフレーム</translation>
    </message>
    <message>
        <source>Time or frame number at the mouse</source>
        <translation>マウス位置の時間またはフレーム番号</translation>
    </message>
    <message>
        <source>Value at the mouse</source>
        <translation>マウス位置の値</translation>
    </message>
    <message>
        <source>Value of the curve</source>
        <translation>カーブの値</translation>
    </message>
    <message>
        <source>Value of the current curve at the time of the mouse</source>
        <translation>マウス位置の時間における現在のカーブの値</translation>
    </message>
    <message>
        <source>%1 holds no curve that can be read.</source>
        <translation>%1 には読み取れるカーブがありません。</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 はすでに存在します。
置き換えますか?</translation>
    </message>
    <message>
        <source>The curve could not be saved to %1.</source>
        <translation>カーブを %1 に保存できませんでした。</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>カーソル</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>This expression is too long for the line and can&apos;t be edited here</source>
        <translation>この式は長すぎてこの行に収まらないため、ここでは編集できません</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>ここに式が表示されます</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>元に戻す: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>やり直す: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>The curve was saved to %1, but is perhaps not yet on the disk.</source>
        <translation>カーブは %1 に保存されましたが、まだディスクに書き込まれていない可能性があります。</translation>
    </message>
    <message>
        <source>%1 holds no picture that can be read.</source>
        <translation>%1 には読み取れる画像がありません。</translation>
    </message>
    <message>
        <source>Edit a curve</source>
        <translation>カーブの編集</translation>
    </message>
    <message>
        <source>There is no curve of the name &quot;%1&quot;.</source>
        <translation>「%1」という名前のカーブはありません。</translation>
    </message>
    <message>
        <source>Formula</source>
        <translation>式</translation>
    </message>
    <message>
        <source>The line has room for no more than %1 characters.</source>
        <translation>この行に入るのは %1 文字までです。</translation>
    </message>
    <message>
        <source>All pictures (%1)</source>
        <translation>すべての画像 (%1)</translation>
    </message>
</context>
<context>
    <name>CurveEditorDialogBase</name>
    <message>
        <source>Curve Editor</source>
        <translation>カーブ エディター</translation>
    </message>
    <message>
        <source>Selected variables</source>
        <translation>選択した変数</translation>
    </message>
    <message>
        <source>Here you can select the variables to be edited as curves</source>
        <translation>カーブとして編集する変数をここで選びます</translation>
    </message>
    <message>
        <source>&lt;&lt;</source>
        <translation>&lt;&lt;</translation>
    </message>
    <message>
        <source>Select previous node</source>
        <translation>前のノードを選択</translation>
    </message>
    <message>
        <source>&gt;&gt;</source>
        <translation>&gt;&gt;</translation>
    </message>
    <message>
        <source>Select next node</source>
        <translation>次のノードを選択</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>時間:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>値:</translation>
    </message>
    <message>
        <source>Pre-behaviour:</source>
        <translation>前の動作:</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>ゼロ</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>一定</translation>
    </message>
    <message>
        <source>Post-behaviour:</source>
        <translation>後の動作:</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Loop offset</source>
        <translation>オフセット付きループ</translation>
    </message>
    <message>
        <source>Follow Tangent</source>
        <translation>接線に従う</translation>
    </message>
    <message>
        <source>Ease From:</source>
        <translation>出発イーズ:</translation>
    </message>
    <message>
        <source>Ease To:</source>
        <translation>到達イーズ:</translation>
    </message>
    <message>
        <source>Tension:</source>
        <translation>テンション:</translation>
    </message>
    <message>
        <source>Continuity:</source>
        <translation>連続性:</translation>
    </message>
    <message>
        <source>Bias:</source>
        <translation>バイアス:</translation>
    </message>
    <message>
        <source>Incoming:</source>
        <translation>入力側:</translation>
    </message>
    <message>
        <source>Outgoing:</source>
        <translation>出力側:</translation>
    </message>
    <message>
        <source>Envelope</source>
        <translation>エンベロープ</translation>
    </message>
    <message>
        <source>Here appears the expression</source>
        <translation>ここに式が表示されます</translation>
    </message>
    <message>
        <source>This&apos;s the expression parsed</source>
        <translation>解析された式です</translation>
    </message>
    <message>
        <source>Delete Expression</source>
        <translation>式を削除</translation>
    </message>
    <message>
        <source>Expresion</source>
        <translation>式</translation>
    </message>
    <message>
        <source>Current node: its place among the nodes of the curve, counted from 0</source>
        <translation>現在のノード: カーブのノードの中での位置 (0 から数えます)</translation>
    </message>
    <message>
        <source>Current node: its time, or its frame number</source>
        <translation>現在のノード: 時間またはフレーム番号</translation>
    </message>
    <message>
        <source>Current node: its value</source>
        <translation>現在のノード: 値</translation>
    </message>
    <message>
        <source>Current node: how the curve arrives, from 1 (it slows down) to -1 (it speeds up)</source>
        <translation>現在のノード: カーブの入り方。1 (減速) から -1 (加速) まで</translation>
    </message>
    <message>
        <source>Current node: how the curve leaves, from 1 (slowly at first) to -1 (quickly at first)</source>
        <translation>現在のノード: カーブの出方。1 (最初はゆっくり) から -1 (最初は速く) まで</translation>
    </message>
    <message>
        <source>Current node: how tightly the curve turns, from a narrow bend at 1 to a wide one at -1</source>
        <translation>現在のノード: カーブの曲がり具合。1 で狭く、-1 で広く曲がります</translation>
    </message>
    <message>
        <source>Current node: how sharp a corner the curve makes, 0 for none</source>
        <translation>現在のノード: カーブの角の鋭さ。0 なら角はできません</translation>
    </message>
    <message>
        <source>Current node: whether its direction follows the node before (above 0) or after (below 0)</source>
        <translation>現在のノード: 向きが前のノード (0 より大) と後のノード (0 より小) のどちらに従うか</translation>
    </message>
    <message>
        <source>Current node: slope of the curve before it, in values per time unit</source>
        <translation>現在のノード: その前のカーブの傾き (単位時間あたりの値)</translation>
    </message>
    <message>
        <source>Current node: slope of the curve after it, in values per time unit</source>
        <translation>現在のノード: その後のカーブの傾き (単位時間あたりの値)</translation>
    </message>
    <message>
        <source>Current node</source>
        <translation>現在のノード</translation>
    </message>
    <message>
        <source>Curve before the first node</source>
        <translation>最初のノードより前のカーブ</translation>
    </message>
    <message>
        <source>Curve after the last node</source>
        <translation>最後のノードより後のカーブ</translation>
    </message>
    <message>
        <source>Type of the current node: it shapes the curve from the node before to this one</source>
        <translation>現在のノードの種類: 前のノードからこのノードまでのカーブの形を決めます</translation>
    </message>
    <message>
        <source>Turns the current curve back into nodes that can be edited</source>
        <translation>現在のカーブを編集できるノードに戻します</translation>
    </message>
    <message>
        <source>What the numbers of the current node do to a curve</source>
        <translation>現在のノードの数値がカーブに与える効果</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>ページ</translation>
    </message>
    <message>
        <source>Curves on the canvas</source>
        <translation>キャンバス上のカーブ</translation>
    </message>
    <message>
        <source>Previous node</source>
        <translation>前のノード</translation>
    </message>
    <message>
        <source>Next node</source>
        <translation>次のノード</translation>
    </message>
    <message>
        <source>Node index</source>
        <translation>ノード番号</translation>
    </message>
    <message>
        <source>Time or frame</source>
        <translation>時間またはフレーム</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Pre-behaviour</source>
        <translation>前の動作</translation>
    </message>
    <message>
        <source>Post-behaviour</source>
        <translation>後の動作</translation>
    </message>
    <message>
        <source>Ease from</source>
        <translation>出発イーズ</translation>
    </message>
    <message>
        <source>Ease to</source>
        <translation>到達イーズ</translation>
    </message>
    <message>
        <source>Node type</source>
        <translation>ノードの種類</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>テンション</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>連続性</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>バイアス</translation>
    </message>
    <message>
        <source>Outgoing tangent</source>
        <translation>出力側の接線</translation>
    </message>
    <message>
        <source>Incoming tangent</source>
        <translation>入力側の接線</translation>
    </message>
    <message>
        <source>Preview of the node parameters</source>
        <translation>ノード パラメーターのプレビュー</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>式</translation>
    </message>
    <message>
        <source>Formula of t, then Return</source>
        <translation>t の式を入力して Enter</translation>
    </message>
</context>
<context>
    <name>DecimalQuestion</name>
    <message>
        <source>Line %1 can be read in two ways. These are the rows from there on:</source>
        <translation>%1 行目は 2 通りに読めます。そこからの行は次のとおりです。</translation>
    </message>
    <message>
        <source>With a decimal comma:</source>
        <translation>コンマを小数点とした場合:</translation>
    </message>
    <message>
        <source>With a decimal point:</source>
        <translation>ピリオドを小数点とした場合:</translation>
    </message>
    <message>
        <source>Decimal comma</source>
        <translation>コンマが小数点</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>ピリオドが小数点</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>EditingList</name>
    <message>
        <source>solo</source>
        <translation>単独</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>非表示</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>ロック</translation>
    </message>
    <message>
        <source>Shows this curve alone, or with others that are marked so (Shift+H)</source>
        <translation>このカーブだけを、または同じ印のあるカーブと一緒に表示します (Shift+H)</translation>
    </message>
    <message>
        <source>The application hides this curve</source>
        <translation>アプリケーションがこのカーブを非表示にしています</translation>
    </message>
    <message>
        <source>Hides this curve (H)</source>
        <translation>このカーブを非表示にします (H)</translation>
    </message>
    <message>
        <source>The application has locked this curve</source>
        <translation>アプリケーションがこのカーブをロックしています</translation>
    </message>
    <message>
        <source>Locks this curve against edits (L)</source>
        <translation>このカーブをロックして編集できないようにします (L)</translation>
    </message>
    <message>
        <source>Open a curve with +</source>
        <translation>+ でカーブを開きます</translation>
    </message>
    <message>
        <source>formula</source>
        <translation>数式</translation>
    </message>
</context>
<context>
    <name>PanDialog</name>
    <message>
        <source>pan selection</source>
        <translation>選択をずらす</translation>
    </message>
    <message>
        <source>Pan X</source>
        <translation>ずらす量 X</translation>
    </message>
    <message>
        <source>Pan Y</source>
        <translation>ずらす量 Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>units of time</source>
        <translation>時間の単位</translation>
    </message>
    <message>
        <source>units of value</source>
        <translation>値の単位</translation>
    </message>
</context>
<context>
    <name>PointAccessible</name>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Point %1 of %2, frame %3, value %4</source>
        <translation>ポイント %1 / %2、フレーム %3、値 %4</translation>
    </message>
    <message>
        <source>Point %1 of %2, time %3, value %4</source>
        <translation>ポイント %1 / %2、時間 %3、値 %4</translation>
    </message>
    <message>
        <source>Delete a point of %1</source>
        <translation>%1 のポイントを削除</translation>
    </message>
    <message>
        <source>Delete %1 points of %2</source>
        <translation>%2 のポイント %1 個を削除</translation>
    </message>
</context>
<context>
    <name>PointCommands</name>
    <message>
        <source>Nudge a point of %1</source>
        <translation>%1 のポイントを微調整</translation>
    </message>
    <message>
        <source>Nudge %1 points of %2</source>
        <translation>%2 のポイント %1 個を微調整</translation>
    </message>
    <message>
        <source>Cut points of %1</source>
        <translation>%1 のポイントを切り取り</translation>
    </message>
    <message>
        <source>Paste points</source>
        <translation>ポイントを貼り付け</translation>
    </message>
    <message>
        <source>Paste points into %1</source>
        <translation>%1 にポイントを貼り付け</translation>
    </message>
    <message>
        <source>Duplicate points of %1</source>
        <translation>%1 のポイントを複製</translation>
    </message>
    <message>
        <source>Insert a point on %1</source>
        <translation>%1 上にポイントを挿入</translation>
    </message>
    <message>
        <source>Flatten a point of %1</source>
        <translation>%1 のポイントの接線を水平にする</translation>
    </message>
    <message>
        <source>Flatten %1 points of %2</source>
        <translation>%2 のポイント %1 個の接線を水平にする</translation>
    </message>
    <message>
        <source>Align the tangents of a point of %1</source>
        <translation>%1 のポイントの接線をそろえる</translation>
    </message>
    <message>
        <source>Align the tangents of %1 points of %2</source>
        <translation>%2 のポイント %1 個の接線をそろえる</translation>
    </message>
    <message>
        <source>Smooth a point of %1</source>
        <translation>%1 のポイントを滑らかにする</translation>
    </message>
    <message>
        <source>Smooth %1 points of %2</source>
        <translation>%2 のポイント %1 個を滑らかにする</translation>
    </message>
    <message>
        <source>Moved there, the points would lie beyond all times.</source>
        <translation>そこへ動かすと、ポイントが扱える時間の範囲を超えます。</translation>
    </message>
    <message>
        <source>Replace points of %1</source>
        <translation>%1 のポイントを置き換え</translation>
    </message>
    <message>
        <source>Ease a point of %1</source>
        <translation>%1 のポイントにイーズを適用</translation>
    </message>
    <message>
        <source>Ease %1 points of %2</source>
        <translation>%2 のポイント %1 個にイーズを適用</translation>
    </message>
    <message>
        <source>Ease: %1 may have no Bezier points</source>
        <translation>イーズ: %1 はベジェ ポイントを持てません</translation>
    </message>
    <message>
        <source>Ease: a level segment has no step, and is straight now</source>
        <translation>イーズ: 水平な区間には差がないため、直線になりました</translation>
    </message>
    <message>
        <source>Ease: deviates by at most %1 % of the step</source>
        <translation>イーズ: ずれは差の最大 %1 % です</translation>
    </message>
    <message>
        <source>Ease: exact</source>
        <translation>イーズ: 正確です</translation>
    </message>
    <message>
        <source>%1; an eased Tcb segment beside it has bent</source>
        <translation>%1。隣のイーズ付き Tcb 区間が曲がりました</translation>
    </message>
    <message>
        <source>Ease: select both ends of a segment that is not vertical</source>
        <translation>イーズ: 垂直でない区間の両端を選択してください</translation>
    </message>
    <message>
        <source>Ease: the application has changed the result</source>
        <translation>イーズ: アプリケーションが結果を変更しました</translation>
    </message>
</context>
<context>
    <name>PointText</name>
    <message>
        <source>The text holds no points.</source>
        <translation>テキストにポイントがありません。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no column of points.</source>
        <translation>「%1」はポイントの列ではありません。</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is there twice.</source>
        <translation>列「%1」が重複しています。</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is missing.</source>
        <translation>列「%1」がありません。</translation>
    </message>
    <message>
        <source>More than %1 points.</source>
        <translation>ポイントが %1 個を超えています。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no type of a point.</source>
        <translation>「%1」はポイントの種類ではありません。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number that a point can have.</source>
        <translation>「%1」はポイントに使える数値ではありません。</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>%1 行目: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways.</source>
        <translation>「%1」は 2 通りに読めます。</translation>
    </message>
    <message>
        <source>A quotation mark has no partner.</source>
        <translation>対になる引用符がありません。</translation>
    </message>
    <message>
        <source>The line is too long.</source>
        <translation>行が長すぎます。</translation>
    </message>
    <message>
        <source>Numbers expected: %2, found: %1.</source>
        <translation>必要な数値: %2 個、実際: %1 個。</translation>
    </message>
    <message>
        <source>Rows expected: %2, found: %1.</source>
        <translation>必要な行: %2 行、実際: %1 行。</translation>
    </message>
</context>
<context>
    <name>PointType</name>
    <message>
        <source>Linear</source>
        <translation>リニア</translation>
    </message>
    <message>
        <source>Linear node</source>
        <translation>リニア ノード</translation>
    </message>
    <message>
        <source>Linear point</source>
        <translation>リニア ポイント</translation>
    </message>
    <message>
        <source>Selection to Linear</source>
        <translation>選択をリニアに</translation>
    </message>
    <message>
        <source>Bezier</source>
        <translation>ベジェ</translation>
    </message>
    <message>
        <source>Bezier node</source>
        <translation>ベジェ ノード</translation>
    </message>
    <message>
        <source>Bezier point</source>
        <translation>ベジェ ポイント</translation>
    </message>
    <message>
        <source>Selection to Bezier</source>
        <translation>選択をベジェに</translation>
    </message>
    <message>
        <source>Tcb</source>
        <translation>TCB</translation>
    </message>
    <message>
        <source>Tcb node</source>
        <translation>TCB ノード</translation>
    </message>
    <message>
        <source>Tcb point</source>
        <translation>TCB ポイント</translation>
    </message>
    <message>
        <source>Selection to Tcb</source>
        <translation>選択を TCB に</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>ホールド</translation>
    </message>
    <message>
        <source>Hold node</source>
        <translation>ホールド ノード</translation>
    </message>
    <message>
        <source>Hold point</source>
        <translation>ホールド ポイント</translation>
    </message>
    <message>
        <source>Selection to Hold</source>
        <translation>選択をホールドに</translation>
    </message>
</context>
<context>
    <name>ScaleDialog</name>
    <message>
        <source>scale selection</source>
        <translation>選択をスケール</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>倍率 X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>倍率 Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Pivot X</source>
        <translation>基準 X</translation>
    </message>
    <message>
        <source>Pivot Y</source>
        <translation>基準 Y</translation>
    </message>
    <message>
        <source>factor of times</source>
        <translation>時間の倍率</translation>
    </message>
    <message>
        <source>factor of values</source>
        <translation>値の倍率</translation>
    </message>
    <message>
        <source>time that stays</source>
        <translation>動かない時間</translation>
    </message>
    <message>
        <source>value that stays</source>
        <translation>動かない値</translation>
    </message>
</context>
<context>
    <name>TcbCurveFrame</name>
    <message>
        <source>Select one point to edit its numbers</source>
        <translation>ポイントを 1 つ選択すると数値を編集できます</translation>
    </message>
    <message>
        <source>Open a curve with points to edit them here</source>
        <translation>ポイントのあるカーブを開くと、ここで編集できます</translation>
    </message>
</context>
<context>
    <name>TcbEditorForm</name>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>%1 のポイントの数値を変更</translation>
    </message>
</context>
<context>
    <name>ViewportSettings</name>
    <message>
        <source>viewPort Settings</source>
        <translation>表示範囲の設定</translation>
    </message>
    <message>
        <source>MinX</source>
        <translation>最小 X</translation>
    </message>
    <message>
        <source>MinY</source>
        <translation>最小 Y</translation>
    </message>
    <message>
        <source>MaxX</source>
        <translation>最大 X</translation>
    </message>
    <message>
        <source>MaxY</source>
        <translation>最大 Y</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>first time</source>
        <translation>最初の時間</translation>
    </message>
    <message>
        <source>lowest value</source>
        <translation>最小値</translation>
    </message>
    <message>
        <source>last time</source>
        <translation>最後の時間</translation>
    </message>
    <message>
        <source>highest value</source>
        <translation>最大値</translation>
    </message>
</context>
<context>
    <name>curveeditor::BakeDialog</name>
    <message>
        <source>Bake</source>
        <translation>ベイク</translation>
    </message>
    <message>
        <source>&amp;From frame</source>
        <translation>開始フレーム(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;From time</source>
        <translation>開始時間(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;To frame</source>
        <translation>終了フレーム(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;To time</source>
        <translation>終了時間(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <translation>間隔(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>ポイント(&amp;P)</translation>
    </message>
    <message>
        <source>As few as the tolerance allows</source>
        <translation>許容差の範囲で最少</translation>
    </message>
    <message>
        <source>To&amp;lerance</source>
        <translation>許容差(&amp;L)</translation>
    </message>
    <message>
        <source>The times must be numbers.</source>
        <translation>時間には数値を入力してください。</translation>
    </message>
    <message>
        <source>This takes too long. Fewer points may do.</source>
        <translation>時間がかかりすぎます。ポイントを減らしてみてください。</translation>
    </message>
    <message>
        <source>The step must be greater than 0.</source>
        <translation>間隔は 0 より大きくしてください。</translation>
    </message>
    <message>
        <source>The first time is later than the last.</source>
        <translation>開始が終了より後になっています。</translation>
    </message>
    <message>
        <source>These are more than %1 points.</source>
        <translation>ポイントが %1 個を超えています。</translation>
    </message>
    <message>
        <source>The curve has no value there.</source>
        <translation>その範囲ではカーブに値がありません。</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>ポイント数: %1</translation>
    </message>
    <message>
        <source>%1 values become %2 points, at most %3 away.</source>
        <translation>%1 個の値が %2 個のポイントになります (ずれは最大 %3)。</translation>
    </message>
    <message>
        <source>Bake %1</source>
        <translation>%1 をベイク</translation>
    </message>
</context>
<context>
    <name>curveeditor::CurveChooser</name>
    <message>
        <source>Curves to open</source>
        <translation>開くカーブ</translation>
    </message>
    <message>
        <source>There is no other curve</source>
        <translation>ほかのカーブはありません</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Filter of the curves to open</source>
        <translation>開くカーブのフィルター</translation>
    </message>
    <message>
        <source>Curves that are not on the canvas</source>
        <translation>キャンバス上にないカーブ</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; Return puts the chosen ones on the canvas</source>
        <translation>名前にこの文字列を含むカーブだけを表示します。Enter キーで選んだカーブをキャンバスに開きます</translation>
    </message>
    <message>
        <source>Return or a double click puts the chosen curves on the canvas, Shift and Ctrl choose several</source>
        <translation>Enter キーまたはダブルクリックで、選んだカーブをキャンバスに開きます。Shift と Ctrl で複数を選べます</translation>
    </message>
</context>
<context>
    <name>curveeditor::EaseDialog</name>
    <message>
        <source>CSS ease</source>
        <translation>CSS イーズ</translation>
    </message>
    <message>
        <source>x1 and x2 are numbers from 0 to 1, y1 and y2 from %1 to %2.</source>
        <translation>x1 と x2 は 0 から 1、y1 と y2 は %1 から %2 の数値です。</translation>
    </message>
    <message>
        <source>Points added to a segment: %1</source>
        <translation>区間に追加されるポイント: %1</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditMenu</name>
    <message>
        <source>Cut points</source>
        <translation>ポイントを切り取り</translation>
    </message>
    <message>
        <source>Copy points</source>
        <translation>ポイントをコピー</translation>
    </message>
    <message>
        <source>Paste points at the time line</source>
        <translation>タイムラインの位置にポイントを貼り付け</translation>
    </message>
    <message>
        <source>Paste points where they were</source>
        <translation>元の位置にポイントを貼り付け</translation>
    </message>
    <message>
        <source>Duplicate points</source>
        <translation>ポイントを複製</translation>
    </message>
    <message>
        <source>Edit all curves at once</source>
        <translation>すべてのカーブを同時に編集</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>すべてのポイントを選択</translation>
    </message>
    <message>
        <source>Select no point</source>
        <translation>ポイントの選択を解除</translation>
    </message>
    <message>
        <source>Select the other points</source>
        <translation>ポイントの選択を反転</translation>
    </message>
    <message>
        <source>Select the next point too</source>
        <translation>次のポイントも選択</translation>
    </message>
    <message>
        <source>Select the previous point too</source>
        <translation>前のポイントも選択</translation>
    </message>
    <message>
        <source>A frame later</source>
        <translation>1 フレーム後へ</translation>
    </message>
    <message>
        <source>A frame earlier</source>
        <translation>1 フレーム前へ</translation>
    </message>
    <message>
        <source>A tenth of a grid line up</source>
        <translation>グリッド線の 1/10 上へ</translation>
    </message>
    <message>
        <source>A tenth of a grid line down</source>
        <translation>グリッド線の 1/10 下へ</translation>
    </message>
    <message>
        <source>A frame later, ten times</source>
        <translation>10 フレーム後へ</translation>
    </message>
    <message>
        <source>A frame earlier, ten times</source>
        <translation>10 フレーム前へ</translation>
    </message>
    <message>
        <source>A tenth of a grid line up, ten times</source>
        <translation>グリッド線 1 本分上へ</translation>
    </message>
    <message>
        <source>A tenth of a grid line down, ten times</source>
        <translation>グリッド線 1 本分下へ</translation>
    </message>
    <message>
        <source>Move points</source>
        <translation>ポイントを移動</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the mouse</source>
        <translation>マウス位置のカーブ上にポイントを挿入</translation>
    </message>
    <message>
        <source>Insert a point on the curve at the time line</source>
        <translation>タイムライン位置のカーブ上にポイントを挿入</translation>
    </message>
    <message>
        <source>Tangents</source>
        <translation>接線</translation>
    </message>
    <message>
        <source>Flatten</source>
        <translation>水平にする</translation>
    </message>
    <message>
        <source>Align both sides</source>
        <translation>両側をそろえる</translation>
    </message>
    <message>
        <source>Smooth without overshoot</source>
        <translation>オーバーシュートなしで滑らかに</translation>
    </message>
    <message>
        <source>Simplify…</source>
        <translation>簡略化…</translation>
    </message>
    <message>
        <source>Bake…</source>
        <translation>ベイク…</translation>
    </message>
    <message>
        <source>Snapping</source>
        <translation>スナップ</translation>
    </message>
    <message>
        <source>Snap while dragging (Ctrl: the other way)</source>
        <translation>ドラッグ中にスナップ (Ctrl で逆)</translation>
    </message>
    <message>
        <source>To frames</source>
        <translation>フレームに</translation>
    </message>
    <message>
        <source>To grid lines</source>
        <translation>グリッド線に</translation>
    </message>
    <message>
        <source>To points</source>
        <translation>ポイントに</translation>
    </message>
    <message>
        <source>To the time line</source>
        <translation>タイムラインに</translation>
    </message>
    <message>
        <source>Show all curves</source>
        <translation>すべてのカーブを表示</translation>
    </message>
    <message>
        <source>Show selected points or the curve</source>
        <translation>選択したポイントまたはカーブを表示</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>拡大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>縮小</translation>
    </message>
    <message>
        <source>Time line a frame later</source>
        <translation>タイムラインを 1 フレーム後へ</translation>
    </message>
    <message>
        <source>Time line a frame earlier</source>
        <translation>タイムラインを 1 フレーム前へ</translation>
    </message>
    <message>
        <source>Show the slope of the curve</source>
        <translation>カーブの傾きを表示</translation>
    </message>
    <message>
        <source>Lock the curve</source>
        <translation>カーブをロック</translation>
    </message>
    <message>
        <source>Hide the curve</source>
        <translation>カーブを非表示</translation>
    </message>
    <message>
        <source>Show the curve alone</source>
        <translation>カーブだけを表示</translation>
    </message>
    <message>
        <source>Paste at the time line, replacing points</source>
        <translation>タイムラインの位置に貼り付けてポイントを置き換え</translation>
    </message>
    <message>
        <source>Keep handles in line</source>
        <translation>ハンドルを一直線に保つ</translation>
    </message>
    <message>
        <source>Sine in</source>
        <translation>サイン イン</translation>
    </message>
    <message>
        <source>Sine out</source>
        <translation>サイン アウト</translation>
    </message>
    <message>
        <source>Sine in and out</source>
        <translation>サイン インアウト</translation>
    </message>
    <message>
        <source>Quadratic in</source>
        <translation>2 次 イン</translation>
    </message>
    <message>
        <source>Quadratic out</source>
        <translation>2 次 アウト</translation>
    </message>
    <message>
        <source>Quadratic in and out</source>
        <translation>2 次 インアウト</translation>
    </message>
    <message>
        <source>Cubic in</source>
        <translation>3 次 イン</translation>
    </message>
    <message>
        <source>Cubic out</source>
        <translation>3 次 アウト</translation>
    </message>
    <message>
        <source>Cubic in and out</source>
        <translation>3 次 インアウト</translation>
    </message>
    <message>
        <source>Exponential in</source>
        <translation>指数 イン</translation>
    </message>
    <message>
        <source>Exponential out</source>
        <translation>指数 アウト</translation>
    </message>
    <message>
        <source>Exponential in and out</source>
        <translation>指数 インアウト</translation>
    </message>
    <message>
        <source>Back in</source>
        <translation>バック イン</translation>
    </message>
    <message>
        <source>Back out</source>
        <translation>バック アウト</translation>
    </message>
    <message>
        <source>Back in and out</source>
        <translation>バック インアウト</translation>
    </message>
    <message>
        <source>Ease</source>
        <translation>イーズ</translation>
    </message>
    <message>
        <source>Smoothstep</source>
        <translation>スムースステップ</translation>
    </message>
    <message>
        <source>CSS…</source>
        <translation>CSS…</translation>
    </message>
    <message>
        <source>Own scale for each curve</source>
        <translation>カーブごとの目盛り</translation>
    </message>
    <message>
        <source>Transform box</source>
        <translation>変形ボックス</translation>
    </message>
    <message>
        <source>Retime…</source>
        <translation>リタイム…</translation>
    </message>
    <message>
        <source>Pale image behind the curves</source>
        <translation>カーブの背後の画像を薄くする</translation>
    </message>
    <message>
        <source>No point is selected.</source>
        <translation>ポイントが選択されていません。</translation>
    </message>
    <message>
        <source>No point of the current curve is selected.</source>
        <translation>現在のカーブのポイントが選択されていません。</translation>
    </message>
    <message>
        <source>The clipboard holds no points.</source>
        <translation>クリップボードにポイントがありません。</translation>
    </message>
    <message>
        <source>The current curve shows no points.</source>
        <translation>現在のカーブに表示されるポイントがありません。</translation>
    </message>
    <message>
        <source>The current curve does not show more than two points.</source>
        <translation>現在のカーブに表示されるポイントが 2 個以下です。</translation>
    </message>
    <message>
        <source>No curve that is shown is the current one.</source>
        <translation>表示されているカーブが選ばれていません。</translation>
    </message>
    <message>
        <source>The application does not allow that here.</source>
        <translation>ここではアプリケーションがそれを許可していません。</translation>
    </message>
    <message>
        <source>Draw into the curve (hold D)</source>
        <translation>カーブに描き込む (D を押したまま)</translation>
    </message>
</context>
<context>
    <name>curveeditor::EditingListPanel</name>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Filter of the curves</source>
        <translation>カーブのフィルター</translation>
    </message>
    <message>
        <source>Shows only the curves whose names contain this text; the others stay on the canvas</source>
        <translation>名前にこの文字列を含むカーブだけを表示します。ほかのカーブはキャンバスに残ります</translation>
    </message>
    <message>
        <source>Open curves…</source>
        <translation>カーブを開く…</translation>
    </message>
    <message>
        <source>Open curves</source>
        <translation>カーブを開く</translation>
    </message>
    <message>
        <source>Puts curves on the canvas (Insert in the list)</source>
        <translation>カーブをキャンバスに開きます (リストで Insert キー)</translation>
    </message>
</context>
<context>
    <name>curveeditor::FitDialog</name>
    <message>
        <source>The tolerance must be a number, 0 or more.</source>
        <translation>許容差には 0 以上の数値を入力してください。</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>カーブはロックされています。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>%1 を描画</translation>
    </message>
    <message>
        <source>A formula can&apos;t be drawn.</source>
        <translation>数式は描画できません。</translation>
    </message>
    <message>
        <source>%1 is locked.</source>
        <translation>%1 はロックされています。</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>ベジェまたはリニア ポイントになりますが、このカーブでは使えません。</translation>
    </message>
    <message>
        <source>%1 is hidden.</source>
        <translation>%1 は非表示です。</translation>
    </message>
    <message>
        <source>The next drag draws; Escape forgets it.</source>
        <translation>次のドラッグで描きます。Escape で取り消します。</translation>
    </message>
</context>
<context>
    <name>curveeditor::NumbersForm</name>
    <message>
        <source>This is no number</source>
        <translation>数値ではありません</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTableModel</name>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Incoming</source>
        <translation>入力側</translation>
    </message>
    <message>
        <source>Outgoing</source>
        <translation>出力側</translation>
    </message>
    <message>
        <source>Tension</source>
        <translation>テンション</translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation>連続性</translation>
    </message>
    <message>
        <source>Bias</source>
        <translation>バイアス</translation>
    </message>
    <message>
        <source>Ease To</source>
        <translation>到達イーズ</translation>
    </message>
    <message>
        <source>Ease From</source>
        <translation>出発イーズ</translation>
    </message>
    <message>
        <source>Change the type of a point of %1</source>
        <translation>%1 のポイントの種類を変更</translation>
    </message>
    <message>
        <source>Change the type of %1 points of %2</source>
        <translation>%2 のポイント %1 個の種類を変更</translation>
    </message>
    <message>
        <source>Change a number of a point of %1</source>
        <translation>%1 のポイントの数値を変更</translation>
    </message>
    <message>
        <source>Change a number of %1 points of %2</source>
        <translation>%2 のポイント %1 個の数値を変更</translation>
    </message>
    <message>
        <source>No finite number was typed. The old one stays.</source>
        <translation>有限の数が入力されませんでした。元の値のままです。</translation>
    </message>
    <message>
        <source>The curve is locked.</source>
        <translation>カーブはロックされています。</translation>
    </message>
</context>
<context>
    <name>curveeditor::PointTablePage</name>
    <message>
        <source>Points</source>
        <translation>ポイント</translation>
    </message>
    <message>
        <source>Points of the current curve</source>
        <translation>現在のカーブのポイント</translation>
    </message>
    <message>
        <source>Select all points</source>
        <translation>すべてのポイントを選択</translation>
    </message>
    <message>
        <source>Selects all points of the current curve</source>
        <translation>現在のカーブのすべてのポイントを選択します</translation>
    </message>
    <message>
        <source>What is typed into a cell goes to all selected rows</source>
        <translation>セルに入力した内容は、選択したすべての行に反映されます</translation>
    </message>
    <message>
        <source>Open a curve with points to see them here</source>
        <translation>ポイントのあるカーブを開くと、ここにポイントが表示されます</translation>
    </message>
</context>
<context>
    <name>curveeditor::RetimeDialog</name>
    <message>
        <source>Retime a point of %1</source>
        <translation>%1 のポイントをリタイム</translation>
    </message>
    <message>
        <source>Retime %1 points of %2</source>
        <translation>%2 のポイント %1 個をリタイム</translation>
    </message>
    <message>
        <source>Retime</source>
        <translation>リタイム</translation>
    </message>
    <message>
        <source>&amp;Time factor</source>
        <translation>時間の倍率(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Value factor</source>
        <translation>値の倍率(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>基準(&amp;A)</translation>
    </message>
    <message>
        <source>The first point</source>
        <translation>最初のポイント</translation>
    </message>
    <message>
        <source>The curve at the time line</source>
        <translation>タイムライン位置のカーブ</translation>
    </message>
    <message>
        <source>The middle</source>
        <translation>中央</translation>
    </message>
    <message>
        <source>The factors must be numbers, that of the times not 0.</source>
        <translation>倍率には数値を入力してください。時間の倍率は 0 にできません。</translation>
    </message>
    <message>
        <source>A curve has changed meanwhile and stays as it is.</source>
        <translation>カーブがその間に変更されたため、そのままにします。</translation>
    </message>
    <message>
        <source>Number of points: %1</source>
        <translation>ポイント数: %1</translation>
    </message>
    <message>
        <source>A single point keeps its place, unless it is retimed about the time line.</source>
        <translation>ポイントが 1 つだけのときは、タイムラインを基準にしないかぎり動きません。</translation>
    </message>
</context>
<context>
    <name>curveeditor::ShrinkingBox</name>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
</context>
<context>
    <name>curveeditor::SimplifyDialog</name>
    <message>
        <source>Simplify %1</source>
        <translation>%1 を簡略化</translation>
    </message>
    <message>
        <source>Simplify</source>
        <translation>簡略化</translation>
    </message>
    <message>
        <source>&amp;Tolerance</source>
        <translation>許容差(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Keep rising and falling parts so</source>
        <translation>増加と減少の部分を保つ(&amp;K)</translation>
    </message>
    <message>
        <source>The curve has changed meanwhile and stays as it is.</source>
        <translation>カーブがその間に変更されたため、そのままにします。</translation>
    </message>
    <message>
        <source>No fewer than %1 points are within this tolerance.</source>
        <translation>この許容差では %1 個より少なくできません。</translation>
    </message>
    <message>
        <source>%1 points of the selected part become %2, at most %3 away.</source>
        <translation>選択部分のポイント %1 個が %2 個になります (ずれは最大 %3)。</translation>
    </message>
    <message>
        <source>%1 points become %2, at most %3 away.</source>
        <translation>ポイント %1 個が %2 個になります (ずれは最大 %3)。</translation>
    </message>
    <message>
        <source>This makes Bezier or Linear points, which the curve may not have.</source>
        <translation>ベジェまたはリニア ポイントになりますが、このカーブでは使えません。</translation>
    </message>
</context>
<context>
    <name>curveeditor::TransformBox</name>
    <message>
        <source>That would leave points without a time or a value.</source>
        <translation>ポイントの時間または値がなくなるため、変形できません。</translation>
    </message>
    <message>
        <source>Nothing that can be edited is selected.</source>
        <translation>編集できるものが選択されていません。</translation>
    </message>
    <message>
        <source>A transform box takes points at two times or two values.</source>
        <translation>変形ボックスには、2 つ以上の時間または値にあるポイントが必要です。</translation>
    </message>
    <message>
        <source>Edges scale, with Shift about the middle; the inside moves; Return ends it.</source>
        <translation>辺でスケール、Shift で中央基準、内側で移動、Enter で終了。</translation>
    </message>
    <message>
        <source>Move a point of %1</source>
        <translation>%1 のポイントを移動</translation>
    </message>
    <message>
        <source>Move %1 points of %2</source>
        <translation>%2 のポイント %1 個を移動</translation>
    </message>
    <message>
        <source>Scale a point of %1</source>
        <translation>%1 のポイントをスケール</translation>
    </message>
    <message>
        <source>Scale %1 points of %2</source>
        <translation>%2 のポイント %1 個をスケール</translation>
    </message>
    <message>
        <source>A Tcb segment beside points that are not selected may bend.</source>
        <translation>選択されていないポイントの隣の TCB 区間は形が変わることがあります。</translation>
    </message>
</context>
</TS>
