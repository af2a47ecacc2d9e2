// The look of an exported web page: a sheet of calendar paper for screens of any width and for the printer.
#pragma once

#include <QStringView>

inline constexpr QStringView WebPageStyle = uR"css(
:root { color-scheme: light dark; --paper: #fdfcf9; --ink: #22252a; --soft: #6b6f76; --line: #d8d3c7; --link: #2f6db5;
  --text: Charter, "Bitstream Charter", "Iowan Old Style", Georgia, serif }
body { margin: 0 auto; max-width: 50rem; padding: 2.5rem 1.25rem 4rem; background: var(--paper); color: var(--ink);
  font: 1.0625rem/1.5 var(--text); overflow-wrap: anywhere }
h1, h2, h3 { margin: 0; font-weight: normal; line-height: 1.3 }
h1 { font-size: 2rem }
h2 { margin-top: 3rem; padding-bottom: .5rem; font-size: 1.375rem }
h3 { padding-top: .15rem; color: var(--soft); font-size: .9375rem }
article { padding: .75rem 0; border-top: 1px solid var(--line) }
p { margin: 0; white-space: pre-wrap; tab-size: 4.5em }
a { color: var(--link) }
img { max-width: 100%; vertical-align: bottom }
@media (min-width: 44rem), print {
  article { display: grid; grid-template-columns: 11.5rem minmax(0, 1fr); column-gap: 1.5rem }
}
@media screen and (prefers-color-scheme: dark) {
  :root { --paper: #1d1e20; --ink: #e4e1da; --soft: #a09d96; --line: #3a3a38; --link: #8ab4e8 }
}
@media print {
  body { max-width: none; padding: 0; background: none; font-size: 10pt }
  h2 { break-after: avoid }
  article { break-inside: avoid }
}
)css";
