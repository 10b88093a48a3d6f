// SPDX-License-Identifier: MIT
#include "editors/code/EncodingTable.h"

#include <array>

namespace kestrel {

namespace {

// A text is measured by the one language that suits it best: the letters of several languages
// together would suit almost anything.

constexpr Language German{u"äöüßÄÖÜ", {}};
constexpr Language French{u"éèêëàâçùûîïôœÉÈÊÀÂÇÔŒ", {}};
constexpr Language Spanish{u"áéíóúñüÁÉÍÓÚÑ", {}};
constexpr Language Portuguese{u"ãõçáéíóúâêôàÃÕÇÁÉÍÓÚÂÊÔÀ", {}};
constexpr Language Italian{u"àèéìòùÀÈÉÌÒÙ", {}};
constexpr Language Swedish{u"åäöéÅÄÖÉ", {}};
constexpr Language Danish{u"æøåéÆØÅ", {}};
constexpr Language Icelandic{u"áðéíóúýþæöÁÐÉÍÓÚÝÞÆÖ", {}};
constexpr Language Polish{u"ąćęłńóśźżĄĆĘŁŃÓŚŹŻ", {}};
constexpr Language Czech{u"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ", {}};
constexpr Language Slovak{u"áäčďéíĺľňóôŕšťúýžÁČĎÉÍĽŇÓÔŔŠŤÚÝŽ", {}};
constexpr Language Hungarian{u"áéíóöőúüűÁÉÍÓÖŐÚÜŰ", {}};
constexpr Language Croatian{u"čćđšžČĆĐŠŽ", {}};
constexpr Language Romanian{u"ăâîşţĂÂÎŞŢ", {}};
constexpr Language Turkish{u"çğıöşüâÇĞİÖŞÜ", {}};
constexpr Language Russian{u"абвгдеёжзийклмнопрстуфхцчшщъыьэюя", u"оеаинтсрвлкмдпуяыь"};
constexpr Language Ukrainian{u"абвгґдеєжзиіїйклмнопрстуфхцчшщьюя", u"оаиніевртксдлпумя"};
constexpr Language Greek{u"αάβγδεέζηήθιίϊΐκλμνξοόπρσςτυύϋΰφχψωώ", u"αοιετσνηρπκμςλί"};

constexpr std::array Western{German,  French,  Spanish, Portuguese,
                             Italian, Swedish, Danish,  Icelandic};
constexpr std::array Eastern{Polish, Czech, Slovak, Hungarian, Croatian, Romanian, German};
constexpr std::array Cyrillic{Russian, Ukrainian};

constexpr double Marks = 1.5; ///< punctuation and wide forms
constexpr double Kana = 3;
constexpr double Usual = 2;  ///< the characters that a school teaches
constexpr double Odd = -1.5; ///< those that few people can read

constexpr std::array ShiftJisRanges{
    CodeRange{0x8140, 0x81fc, Marks}, CodeRange{0x829f, 0x8396, Kana},
    CodeRange{0x824f, 0x829a, Marks}, CodeRange{0x889f, 0x9872, Usual},
    CodeRange{0x989f, 0x9ffc, Odd},   CodeRange{0xe040, 0xeaa4, Odd},
};
constexpr std::array EucJpRanges{
    CodeRange{0x8ea1, 0x8efe, 0},     CodeRange{0xa1a1, 0xa1fe, Marks},
    CodeRange{0xa3a1, 0xa3fe, Marks}, CodeRange{0xa4a1, 0xa5fe, Kana},
    CodeRange{0xb0a1, 0xcffe, Usual}, CodeRange{0xd0a1, 0xf4fe, Odd},
};
constexpr std::array GbkRanges{
    CodeRange{0xa1a1, 0xa1fe, Marks},
    CodeRange{0xa3a1, 0xa3fe, Marks},
    CodeRange{0xb0a1, 0xd7fe, 1},
    CodeRange{0xd8a1, 0xf7fe, Odd},
};
constexpr std::array Big5Ranges{
    CodeRange{0xa140, 0xa2fe, Marks},
    CodeRange{0xa440, 0xc67e, 1},
    CodeRange{0xc940, 0xf9d5, Odd},
};
constexpr std::array KoreanRanges{
    CodeRange{0xa1a1, 0xa1fe, Marks},
    CodeRange{0xa3a1, 0xa3fe, Marks},
    CodeRange{0xb0a1, 0xc8fe, 1},
    CodeRange{0xcaa1, 0xfdfe, Odd},
};

constexpr DoubleByteSet ShiftJis{ShiftJisRanges, true, true, {}};
constexpr DoubleByteSet EucJp{EucJpRanges, false, false, {}};
constexpr DoubleByteSet Gbk{
    GbkRanges, false, true,
    u"的一是不了在人有我他这中大来上个国和地到说时要就出会可也你对生能子得着下过发后作里用道行所"
    u"然家种事成方多经么去法学如都同现当没动面起看定天分还进好小部其些主样理心本前开但因只从想实"
    u"值置数据调用序程初始化读写存器器循环跳转显示屏幕移图块调色板背景声音音乐位址入返回等待清零"
    u"更新按键控制状态表第二三左右加减角色游戏代码设置计算变量速方向颜敌子弹玩关闭开手柄主"};
constexpr DoubleByteSet Big5{
    Big5Ranges, false, true,
    u"的一是不了在人有我他這中大來上個國和地到說時要就出會可也你對生能子得著下過發後作裡用道行所"
    u"然家種事成方多經麼去法學如都同現當沒動面起看定天分還進好小部其些主樣理心本前開但因只從想實"
    u"值置數據調呼叫序程初始化讀寫存器迴圈跳轉顯示螢幕移圖塊調色盤背景聲音樂位址入返回等待清除零"
    u"更新按鍵控制狀態表第二三左右加減角遊戲碼設定計算變速方向顏敵彈玩關閉開手把主色"};
constexpr DoubleByteSet Korean{
    KoreanRanges, false, true,
    u"이다는을를의에가고로하지은기사도자리시정수대어한해나인그라스일주제부장들보으소게전과화면비"
    u"모서트아여있없것입출력값초동작그림음악변호출복귀설키읽쓰기번프램루틴좌표터메레지색위치속방향"
    u"점수총알시끝배경게임오버반복값"};

constexpr std::array Encodings{
    KnownEncoding{"windows-1252", "Windows-1252", Western},
    KnownEncoding{"Shift_JIS", "Shift-JIS", {}, &ShiftJis},
    KnownEncoding{"EUC-JP", "EUC-JP", {}, &EucJp},
    KnownEncoding{"windows-949", "EUC-KR", {}, &Korean},
    KnownEncoding{"GB18030", "GBK", {}, &Gbk},
    KnownEncoding{"Big5", "Big5", {}, &Big5},
    KnownEncoding{"IBM437", "CP437", Western},
    KnownEncoding{"IBM850", "CP850", Western},
    KnownEncoding{"windows-1250", "Windows-1250", Eastern},
    KnownEncoding{"ISO-8859-2", "ISO 8859-2", Eastern},
    KnownEncoding{"IBM852", "CP852", Eastern},
    KnownEncoding{"windows-1251", "Windows-1251", Cyrillic},
    KnownEncoding{"KOI8-R", "KOI8-R", Cyrillic},
    KnownEncoding{"IBM866", "CP866", Cyrillic},
    KnownEncoding{"windows-1253", "Windows-1253", std::span<const Language>(&Greek, 1)},
    KnownEncoding{"windows-1254", "Windows-1254", std::span<const Language>(&Turkish, 1)},
};

} // namespace

std::span<const KnownEncoding> knownEncodings() {
    return Encodings;
}

} // namespace kestrel
