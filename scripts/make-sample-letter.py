#!/usr/bin/env python3
"""Writes data/sample-letter.docx: the sample practice's year-end letter to a client company,
a Word main document with MERGEFIELD fields named as the merge-field catalogue names them
(`nvwordmerge fields --list-type 1`). Run once; the output is committed.

    scripts/make-sample-letter.py [OUTPUT]
"""
import sys
import zipfile
from xml.sax.saxutils import escape

W = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
R = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"


def text_run(text, bold=False):
    props = "<w:rPr><w:b/></w:rPr>" if bold else ""
    return f'<w:r>{props}<w:t xml:space="preserve">{escape(text)}</w:t></w:r>'


def field(instruction, shown, bold=False):
    """A complex field: begin, instruction, separate, the shown result, end."""
    props = "<w:rPr><w:b/></w:rPr>" if bold else ""
    return (
        f'<w:r>{props}<w:fldChar w:fldCharType="begin"/></w:r>'
        f'<w:r>{props}<w:instrText xml:space="preserve"> {escape(instruction)} </w:instrText></w:r>'
        f'<w:r>{props}<w:fldChar w:fldCharType="separate"/></w:r>'
        f'<w:r>{props}<w:t xml:space="preserve">{escape(shown)}</w:t></w:r>'
        f'<w:r>{props}<w:fldChar w:fldCharType="end"/></w:r>'
    )


def merge(name, switches="", bold=False):
    return field(f'MERGEFIELD "{name}" {switches}'.strip(), f"«{name}»", bold)


def para(*runs, style=None, after=None):
    props = ""
    if style or after is not None:
        props = "<w:pPr>"
        if style:
            props += f'<w:pStyle w:val="{style}"/>'
        if after is not None:
            props += f'<w:spacing w:after="{after}"/>'
        props += "</w:pPr>"
    return f"<w:p>{props}{''.join(runs)}</w:p>"


def body():
    tight = 0
    return "".join([
        para(text_run("Bellwood Lane CPA Professional Corporation", bold=True), style="Letterhead", after=tight),
        para(text_run("210 Princess Street, Suite 400, Kingston, Ontario  K7L 1B2"), style="Letterhead", after=tight),
        para(text_run("Telephone (613) 555-0142  ·  office@bellwoodlane.example"), style="Letterhead"),
        para(),
        para(field('DATE \\@ "MMMM d, yyyy"', "November 23, 2026")),
        para(),
        para(merge("Contact Name Prefix", '\\f " "'), merge("Contact First Name"), text_run(" "),
             merge("Contact Last Name"), after=tight),
        para(merge("Contact Job Title"), after=tight),
        para(merge("Company Name"), after=tight),
        para(merge("Address"), after=tight),
        para(merge("City"), text_run(", "), merge("Abbreviated Province"), text_run("  "),
             merge("Postal Code")),
        para(),
        para(text_run("Dear "), merge("Contact First Name"), text_run(",")),
        para(text_run("Re: Year-end engagement, "), merge("Company Name", bold=True),
             merge("Client ID", '\\b " (file " \\f ")"')),
        para(text_run("Our records show the fiscal year end of "), merge("Company Name"),
             text_run(" as "), merge("Year End Date", '\\@ "MMMM d, yyyy"'),
             merge("WSIB Premium Rate",
                   '\\# "$0.00" \\b ", with a WSIB premium rate of " \\f " per $100 of insurable earnings"'),
             text_run(". To have your financial statements and corporate tax return ready on time, "
                      "please send us your bank and credit card statements, your sales and purchase "
                      "records and your payroll summaries within sixty days of your year end.")),
        para(text_run("If anything has changed in your business this year, such as new owners, a new "
                      "location or a change in how you file your sales tax, please let us know. "),
             merge("Managing Accountant"),
             text_run(" looks after your file and can be reached at (613) 555-0142.")),
        para(text_run("Yours truly,")),
        para(),
        para(text_run("Margaret Okafor, CPA"), after=tight),
        para(text_run("Partner"), after=tight),
        para(text_run("Bellwood Lane CPA Professional Corporation")),
        '<w:sectPr><w:pgSz w:w="12240" w:h="15840"/>'
        '<w:pgMar w:top="1440" w:right="1440" w:bottom="1440" w:left="1440" w:header="708" '
        'w:footer="708" w:gutter="0"/></w:sectPr>',
    ])


DOCUMENT = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    f'<w:document xmlns:w="{W}" xmlns:r="{R}"><w:body>{body()}</w:body></w:document>'
)

STYLES = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    f'<w:styles xmlns:w="{W}">'
    '<w:docDefaults><w:rPrDefault><w:rPr>'
    '<w:rFonts w:ascii="Liberation Serif" w:hAnsi="Liberation Serif" w:cs="Liberation Serif"/>'
    '<w:sz w:val="22"/><w:szCs w:val="22"/><w:lang w:val="en-CA"/></w:rPr></w:rPrDefault>'
    '<w:pPrDefault><w:pPr><w:spacing w:after="160" w:line="259" w:lineRule="auto"/></w:pPr>'
    '</w:pPrDefault></w:docDefaults>'
    '<w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/></w:style>'
    '<w:style w:type="paragraph" w:customStyle="1" w:styleId="Letterhead">'
    '<w:name w:val="Letterhead"/><w:basedOn w:val="Normal"/><w:pPr><w:jc w:val="center"/></w:pPr>'
    '<w:rPr><w:color w:val="1F3864"/></w:rPr></w:style>'
    '</w:styles>'
)

SETTINGS = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    f'<w:settings xmlns:w="{W}"><w:defaultTabStop w:val="720"/></w:settings>'
)

CONTENT_TYPES = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
    '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
    '<Default Extension="xml" ContentType="application/xml"/>'
    '<Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>'
    '<Override PartName="/word/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.styles+xml"/>'
    '<Override PartName="/word/settings.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml"/>'
    '</Types>'
)

PACKAGE_RELS = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
    '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="word/document.xml"/>'
    '</Relationships>'
)

DOCUMENT_RELS = (
    '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
    '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
    '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>'
    '<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/settings" Target="settings.xml"/>'
    '</Relationships>'
)


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else "data/sample-letter.docx"
    parts = [
        ("[Content_Types].xml", CONTENT_TYPES),
        ("_rels/.rels", PACKAGE_RELS),
        ("word/document.xml", DOCUMENT),
        ("word/_rels/document.xml.rels", DOCUMENT_RELS),
        ("word/styles.xml", STYLES),
        ("word/settings.xml", SETTINGS),
    ]
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as z:
        for name, text in parts:
            # A fixed time stamp: the same script gives the same file.
            info = zipfile.ZipInfo(name, date_time=(2026, 1, 1, 0, 0, 0))
            info.compress_type = zipfile.ZIP_DEFLATED
            z.writestr(info, text.encode("utf-8"))


if __name__ == "__main__":
    main()
