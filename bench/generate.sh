# Statement generators shared by the benchmarks and the scaling guard; source it. Each writes
# one statement of COUNT transactions on standard output. They draw with the minimal-standard
# linear congruential generator, exact in awk's doubles, so every awk makes the same files.

# generate COUNT sgml|xml [bank|card]: an OFX bank (default) or credit card statement.
generate() {
    awk -v count="$1" -v form="$2" -v kind="${3:-bank}" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    function tag(name, value) {
        if (form == "xml") printf "<%s>%s</%s>\n", name, value, name
        else printf "<%s>%s\n", name, value
    }
    function open_statement() {
        if (kind == "card") {
            print "<CREDITCARDMSGSRSV1>"; print "<CCSTMTTRNRS>"; tag("TRNUID", 1)
            print "<STATUS>"; tag("CODE", 0); tag("SEVERITY", "INFO"); print "</STATUS>"
            print "<CCSTMTRS>"; tag("CURDEF", "USD"); print "<CCACCTFROM>"
            tag("ACCTID", "4111000011112222"); print "</CCACCTFROM>"
            return
        }
        print "<BANKMSGSRSV1>"; print "<STMTTRNRS>"; tag("TRNUID", 1)
        print "<STATUS>"; tag("CODE", 0); tag("SEVERITY", "INFO"); print "</STATUS>"
        print "<STMTRS>"; tag("CURDEF", "USD"); print "<BANKACCTFROM>"; tag("BANKID", "021000000")
        tag("ACCTID", "000123456789"); tag("ACCTTYPE", "CHECKING"); print "</BANKACCTFROM>"
    }
    function close_statement() {
        if (kind == "card") { print "</CCSTMTRS>"; print "</CCSTMTTRNRS>"; print "</CREDITCARDMSGSRSV1>" }
        else { print "</STMTRS>"; print "</STMTTRNRS>"; print "</BANKMSGSRSV1>" }
    }
    BEGIN {
        seed = 20240101
        split("CORNER GROCERY #12|PAYROLL DEPOSIT ACME WIDGETS|CITY POWER AND LIGHT|" \
              "BEAN THERE CAFE|ATM WITHDRAWAL MAIN ST|TRANSFER TO SAVINGS", payees, "|")
        if (form == "xml") {
            print "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>"
            print "<?OFX OFXHEADER=\"200\" VERSION=\"211\" SECURITY=\"NONE\" OLDFILEUID=\"NONE\" NEWFILEUID=\"NONE\"?>"
        } else {
            printf "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nSECURITY:NONE\nENCODING:USASCII\n"
            printf "CHARSET:1252\nCOMPRESSION:NONE\nOLDFILEUID:NONE\nNEWFILEUID:NONE\n\n"
        }
        print "<OFX>"; print "<SIGNONMSGSRSV1>"; print "<SONRS>"; print "<STATUS>"
        tag("CODE", 0); tag("SEVERITY", "INFO"); print "</STATUS>"
        tag("DTSERVER", "20250101120000"); tag("LANGUAGE", "ENG"); print "</SONRS>"
        print "</SIGNONMSGSRSV1>"
        open_statement()
        print "<BANKTRANLIST>"; tag("DTSTART", "20240101"); tag("DTEND", "20241231")
        for (i = 0; i < count; i++) {
            print "<STMTTRN>"
            debit = draw(4) != 0
            tag("TRNTYPE", debit ? "DEBIT" : "CREDIT")
            tag("DTPOSTED", sprintf("2024%02d%02d120000", draw(12) + 1, draw(28) + 1))
            tag("TRNAMT", sprintf("%s%d.%02d", debit ? "-" : "", draw(2000), draw(100)))
            tag("FITID", i)
            if (kind == "bank" && draw(5) == 0) tag("CHECKNUM", 1000 + i % 9000)
            tag("NAME", payees[draw(6) + 1])
            tag("MEMO", "Card purchase " i % 97)
            print "</STMTTRN>"
        }
        print "</BANKTRANLIST>"; print "<LEDGERBAL>"; tag("BALAMT", "1000.00")
        tag("DTASOF", "20241231"); print "</LEDGERBAL>"
        close_statement()
        print "</OFX>"
    }'
}

# generate_csv COUNT: a bank's CSV export with COUNT transactions on standard output, drawn
# as generate draws.
generate_csv() {
    awk -v count="$1" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    BEGIN {
        seed = 20240103
        split("CORNER GROCERY #12|PAYROLL DEPOSIT ACME WIDGETS|CITY POWER AND LIGHT|" \
              "BEAN THERE CAFE|ATM WITHDRAWAL MAIN ST|TRANSFER TO SAVINGS", payees, "|")
        print "Posting Date,Check Number,Description,Amount"
        for (i = 0; i < count; i++) {
            date = sprintf("%02d/%02d/2024", draw(12) + 1, draw(28) + 1)
            check = draw(5) == 0 ? 1000 + i % 9000 : ""
            payee = payees[draw(6) + 1]
            if (i % 7 == 0) payee = "\"" payee ", INC.\""
            printf "%s,%s,%s,%s%d.%02d\n", date, check, payee, draw(4) ? "-" : "", draw(2000),
                draw(100)
        }
    }'
}

# generate_qif COUNT: a bank QIF file with COUNT transactions, some with a check number, a
# memo or a two-way split.
generate_qif() {
    awk -v count="$1" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    BEGIN {
        seed = 20240107
        split("CORNER GROCERY #12|PAYROLL DEPOSIT ACME WIDGETS|CITY POWER AND LIGHT|" \
              "BEAN THERE CAFE|ATM WITHDRAWAL MAIN ST|TRANSFER TO SAVINGS", payees, "|")
        print "!Type:Bank"
        for (i = 0; i < count; i++) {
            cents = draw(200000)
            amount = sprintf("%s%d.%02d", draw(4) ? "-" : "", cents / 100, cents % 100)
            printf "D%d/%d/2024\nT%s\n", draw(12) + 1, draw(28) + 1, amount
            if (draw(5) == 0) printf "N%d\n", 1000 + i % 9000
            printf "P%s\n", payees[draw(6) + 1]
            if (draw(3) == 0) printf "MCard purchase %d\n", i % 97
            if (i % 11 == 0) printf "SFood:Groceries\n$%s\nSHousehold\n$0.00\n", amount
            else printf "LFood:Groceries\n"
            print "^"
        }
    }'
}

# generate_investment COUNT: an OFX investment statement (SGML) whose transactions cycle through
# buys, dividends, reinvestments, sales and cash interest over five securities of its own list.
generate_investment() {
    awk -v count="$1" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    function trade(open, inner, subtag, units, total) {
        printf "<%s><%s><INVTRAN><FITID>%d<DTTRADE>2024%02d%02d</INVTRAN>\n", open, inner, i,
            draw(12) + 1, draw(28) + 1
        printf "<SECID><UNIQUEID>SEC%d<UNIQUEIDTYPE>CUSIP</SECID><UNITS>%s<UNITPRICE>%d.25\n",
            draw(5), units, draw(200) + 1
        printf "<COMMISSION>4.95<TOTAL>%s</%s><%s>%s</%s>\n", total, inner, subtag,
            open ~ /BUY/ ? "BUY" : "SELL", open
    }
    BEGIN {
        seed = 20240101
        printf "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nSECURITY:NONE\nENCODING:USASCII\n"
        printf "CHARSET:1252\nCOMPRESSION:NONE\nOLDFILEUID:NONE\nNEWFILEUID:NONE\n\n"
        print "<OFX><INVSTMTMSGSRSV1><INVSTMTTRNRS><TRNUID>1<INVSTMTRS><DTASOF>20241231<CURDEF>USD"
        print "<INVACCTFROM><BROKERID>broker.test<ACCTID>7000123</INVACCTFROM>"
        print "<INVTRANLIST><DTSTART>20240101<DTEND>20241231"
        for (i = 0; i < count; i++) {
            kind = i % 5
            if (kind == 0) trade("BUYSTOCK", "INVBUY", "BUYTYPE", draw(90) + 10, "-" (draw(9000) + 1) ".10")
            else if (kind == 1) trade("SELLSTOCK", "INVSELL", "SELLTYPE", "-" (draw(9) + 1), (draw(900) + 1) ".40")
            else if (kind == 2) {
                printf "<INCOME><INVTRAN><FITID>%d<DTTRADE>2024%02d%02d<MEMO>Dividend %d</INVTRAN>\n",
                    i, draw(12) + 1, draw(28) + 1, i % 97
                printf "<SECID><UNIQUEID>SEC%d<UNIQUEIDTYPE>CUSIP</SECID><INCOMETYPE>DIV<TOTAL>%d.%02d</INCOME>\n",
                    draw(5), draw(500) + 1, draw(100)
            } else if (kind == 3) {
                printf "<REINVEST><INVTRAN><FITID>%d<DTTRADE>2024%02d%02d</INVTRAN>\n", i,
                    draw(12) + 1, draw(28) + 1
                printf "<SECID><UNIQUEID>SEC%d<UNIQUEIDTYPE>CUSIP</SECID><INCOMETYPE>DIV<TOTAL>-%d.50<UNITS>1.%03d<UNITPRICE>%d.10</REINVEST>\n",
                    draw(5), draw(90) + 10, draw(1000), draw(50) + 5
            } else {
                printf "<INVBANKTRAN><STMTTRN><TRNTYPE>INT<DTPOSTED>2024%02d%02d<TRNAMT>0.%02d<FITID>%d<NAME>Interest</STMTTRN></INVBANKTRAN>\n",
                    draw(12) + 1, draw(28) + 1, draw(99) + 1, i
            }
        }
        print "</INVTRANLIST></INVSTMTRS></INVSTMTTRNRS></INVSTMTMSGSRSV1>"
        print "<SECLISTMSGSRSV1><SECLIST>"
        for (s = 0; s < 5; s++)
            printf "<STOCKINFO><SECINFO><SECID><UNIQUEID>SEC%d<UNIQUEIDTYPE>CUSIP</SECID><SECNAME>Holding %d, Inc<TICKER>HLD%d</SECINFO></STOCKINFO>\n", s, s, s
        print "</SECLIST></SECLISTMSGSRSV1></OFX>"
    }'
}
