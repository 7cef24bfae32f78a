<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>KestIPAddressEdit</name>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
</context>
<context>
    <name>KestLoadingDialog</name>
    <message>
        <source>LoadingDialog</source>
        <extracomment>What the overlay over a busy window is called. It is shown nowhere.</extracomment>
        <translation>正在加载</translation>
    </message>
    <message>
        <source>Please wait</source>
        <extracomment>What a screen reader says when the overlay covers a busy window</extracomment>
        <translation>请稍候</translation>
    </message>
</context>
<context>
    <name>KestNavigationBar</name>
    <message>
        <source>Help</source>
        <extracomment>What a screen reader calls the entry that opens the help</extracomment>
        <translation>帮助</translation>
    </message>
</context>
<context>
    <name>KestTitleBar</name>
    <message>
        <source>QFramelessTitleWidget</source>
        <extracomment>What the title bar itself is called. It is shown nowhere.</extracomment>
        <translation>标题栏</translation>
    </message>
    <message>
        <source>Close</source>
        <extracomment>What a screen reader calls the button that closes the window</extracomment>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Minimize</source>
        <extracomment>What a screen reader calls the button that minimises the window</extracomment>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Title bar</source>
        <extracomment>What a screen reader calls the title bar</extracomment>
        <translation>标题栏</translation>
    </message>
    <message>
        <source>Restore</source>
        <extracomment>What a screen reader calls the button of a maximised window that restores it</extracomment>
        <translation>还原</translation>
    </message>
</context>
</TS>
