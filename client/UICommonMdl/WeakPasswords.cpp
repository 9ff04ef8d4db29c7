#include "WeakPasswords.h"

namespace UICommonMdl {

const QSet<QString>& WeakPasswords()
{
    static const QSet<QString> s_passwords = [] {
        const char* const pszWords =
            "12345678 123456789 1234567890 0123456789 87654321 987654321 9876543210 11111111 00000000 "
            "12341234 "
            "88888888 99999999 12121212 1234abcd 1234qwer 12345qwert 123456a? 1q2w3e4r 1q2w3e4r5t "
            "1q2w3e4r5t6y "
            "1qaz2wsx 1qaz2wsx3edc 1qazxsw2 2wsx3edc a1234567 a12345678 a123456789 aa123456 aa12345678 "
            "ab123456 abc12345 abc123456 abcd1234 abcd12345 abcdefgh abcdefg1 access14 admin123 admin1234 "
            "admin12345 admin@123 admin!23 administrator adminadmin asdf1234 asdfasdf asdfghjk asdfghjkl "
            "baseball basketball changeme changeme1 changeme123 charlie1 chocolate computer computer1 "
            "corvette "
            "danielle default1 default123 dragon12 football football1 freedom1 guest123 hello123 helloworld "
            "iloveyou iloveyou1 iloveyou2 internet jennifer jordan23 letmein1 letmein123 liverpool master123 "
            "marlboro metallica michael1 michelle midnight monkey123 mustang1 nicole123 operator operator1 "
            "p@ssw0rd p@ssw0rd1 p@ssword p@ssword1 p4ssw0rd pa$$w0rd pa$$word pass1234 pass12345 passw0rd "
            "passw0rd1 passwd123 password password! password. password0 password01 password1 password1! "
            "password11 password12 password123 password123! password1234 password2 password3 password@1 "
            "password@123 princess princess1 q1w2e3r4 q1w2e3r4t5 qazwsx123 qazwsxedc qwer1234 qwerasdf "
            "qwerty12 "
            "qwerty123 qwerty1234 qwerty12345 qwertyui qwertyuiop qwertyuiop1 root1234 rootroot samantha "
            "secret123 security security1 server123 service1 starwars starwars1 summer2024 summer2025 "
            "summer2026 "
            "sunshine sunshine1 superman superman1 superuser supervisor support1 support123 system123 "
            "system1234 test1234 test12345 testtest trustno1 user1234 video123 welcome1 welcome12 welcome123 "
            "welcome@123 whatever winter2024 winter2025 winter2026 zaq12wsx zaq1xsw2 zxcvbnm1 zxcvbnm123";
        const QStringList listWords = QString::fromLatin1(pszWords).split(QLatin1Char(' '));
        return QSet<QString>(listWords.begin(), listWords.end());
    }();
    return s_passwords;
}

} // namespace UICommonMdl
