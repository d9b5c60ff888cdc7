#include "host/report/report_style.h"

namespace tslm5::host {

const std::string_view kReportStyle = R"css(
:root {
  color-scheme: light dark;
  --page: #f6f5f1; --card: #ffffff; --ink: #1c2127; --soft: #59626d; --rule: #e3e0d8;
  --tint: #f0eee7; --accent: #2b5f96; --accent-tint: #e4edf6; --grid: #ebe8e0;
  --c0: #3a71b0; --c1: #c46f14; --c2: #2f8f73; --c3: #b04a86; --c4: #7a62c6; --c5: #767c85;
  --lift: 0 1px 2px rgb(40 36 24 / .06), 0 6px 20px rgb(40 36 24 / .05);
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #12151a; --card: #1a1f26; --ink: #e7e9ec; --soft: #a0a9b4; --rule: #2d343e;
    --tint: #222831; --accent: #8cbcec; --accent-tint: #1e3145; --grid: #28303a;
    --c0: #6ba3df; --c1: #e79a4c; --c2: #5dbd9e; --c3: #dd83b6; --c4: #a996ea; --c5: #a3aab3;
    --lift: none;
  }
}
*, *::before, *::after { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; text-size-adjust: 100%; }
body {
  margin: 0; background: var(--page); color: var(--ink);
  font: 400 1rem/1.55 system-ui, -apple-system, "Segoe UI", Roboto, "Noto Sans", "DejaVu Sans",
    sans-serif;
  font-variant-numeric: tabular-nums lining-nums;
}
.page { max-width: 78rem; margin: 0 auto; padding: 3.5rem clamp(1rem, 4vw, 2.5rem) 3rem; }
h1, h2, h3, p, dl, dd, ol, figure, pre { margin: 0; padding: 0; }
h1, h2, h3 { overflow-wrap: anywhere; text-wrap: balance; }
h1 { font-size: clamp(2rem, 6vw, 3.1rem); line-height: 1.08; letter-spacing: -.025em;
  font-weight: 680; }
h2 { font-size: 1.45rem; line-height: 1.2; letter-spacing: -.012em; font-weight: 650; }
h3 { font-size: 1.0625rem; line-height: 1.3; font-weight: 620; }
section { margin-top: 3.5rem; scroll-margin-top: 1rem; }
section > h2 { padding-bottom: .55rem; border-bottom: 1px solid var(--rule);
  margin-bottom: 1.25rem; }
section > h2 + .note { margin-top: -.35rem; }
.eyebrow { color: var(--accent); font-size: .8125rem; font-weight: 620; letter-spacing: .09em;
  text-transform: uppercase; margin-bottom: .5rem; }
.lead { color: var(--soft); font-size: 1.125rem; margin-top: .8rem; max-width: 60ch; }
h3.group { margin: 2rem 0 .9rem; }
h2 + h3.group { margin-top: 0; }
.note { color: var(--soft); font-size: .9375rem; margin-bottom: 1.25rem; max-width: 75ch; }
a { color: var(--accent); text-underline-offset: .2em; }
a:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; border-radius: 2px; }
nav { display: flex; flex-wrap: wrap; gap: .5rem; margin-top: 1.6rem; }
nav a { padding: .3rem .8rem; border-radius: 99px; background: var(--accent-tint);
  text-decoration: none; font-size: .875rem; font-weight: 550; }
nav a:hover { text-decoration: underline; }
.cards { display: grid; gap: 1.1rem;
  grid-template-columns: repeat(auto-fill, minmax(min(100%, 21rem), 1fr)); }
.card { background: var(--card); border: 1px solid var(--rule); border-radius: .8rem;
  padding: 1.15rem 1.25rem 1.2rem; box-shadow: var(--lift); min-width: 0; }
.card > header { display: flex; justify-content: space-between; align-items: baseline;
  gap: .75rem; margin-bottom: .85rem; }
.card > header h3 { min-width: 0; }
.badges { display: flex; gap: .35rem; flex: none; }
.badge { font-size: .75rem; line-height: 1; font-weight: 550; padding: .32rem .55rem;
  border-radius: 99px; background: var(--tint); color: var(--soft); white-space: nowrap; }
.badge.response { background: var(--accent-tint); color: var(--accent); }
.shape { display: grid; grid-template-columns: repeat(3, auto); justify-content: start;
  gap: .1rem 2rem; }
.shape div { display: flex; flex-direction: column-reverse; }
.shape dt { color: var(--soft); font-size: .8125rem; }
.shape dd { font-size: 1.75rem; line-height: 1.25; font-weight: 640; letter-spacing: -.015em; }
.source { color: var(--soft); font-size: .875rem; margin-top: .85rem; padding-top: .8rem;
  border-top: 1px solid var(--rule); overflow-wrap: anywhere; }
.legend { display: flex; flex-wrap: wrap; gap: .35rem 1.1rem; font-size: .9375rem;
  margin: 0 0 1.1rem; padding: 0; list-style: none; }
.legend .name { color: var(--soft); }
.legend li { display: flex; align-items: center; gap: .45rem; min-width: 0;
  overflow-wrap: anywhere; }
.key { width: .8rem; height: .8rem; border-radius: .2rem; flex: none; }
.c0 { fill: var(--c0); background: var(--c0); } .c1 { fill: var(--c1); background: var(--c1); }
.c2 { fill: var(--c2); background: var(--c2); } .c3 { fill: var(--c3); background: var(--c3); }
.c4 { fill: var(--c4); background: var(--c4); } .c5 { fill: var(--c5); background: var(--c5); }
#tokens { min-width: 34rem; }
#tokens td:last-child, #tokens th:last-child { padding-left: 2rem; }
figcaption { display: flex; justify-content: space-between; gap: .75rem; font-size: .75rem;
  color: var(--soft); margin-bottom: .25rem; }
figure + figure { margin-top: .7rem; }
svg { display: block; width: 100%; overflow: visible; }
svg.bars { height: 6.25rem; border-bottom: 1px solid var(--soft); }
svg.bars g:hover { opacity: .72; }
svg.line { height: 17rem; }
svg .grid { stroke: var(--grid); stroke-width: 1; fill: none; vector-effect: non-scaling-stroke; }
svg .series { stroke: var(--c0); stroke-width: 1.75; fill: none; stroke-linejoin: round;
  stroke-linecap: round; vector-effect: non-scaling-stroke; }
.axis { position: relative; height: 1.35rem; font-size: .75rem; color: var(--soft); }
.axis span { position: absolute; top: .3rem; transform: translateX(-50%); white-space: nowrap;
  overflow: hidden; text-overflow: ellipsis; text-align: center; line-height: 1.2; }
.series-plot { display: grid; grid-template-columns: auto minmax(0, 1fr); column-gap: .6rem; }
figure.card > figcaption { margin-bottom: 1rem; font-size: .8125rem; }
.series-plot .up { position: relative; font-size: .75rem; color: var(--soft); display: grid;
  justify-items: end; }
.series-plot .up span { grid-area: 1 / 1; position: relative; height: 0; line-height: 0;
  white-space: nowrap; }
.series-plot .axis { grid-column: 2; }
.empty { color: var(--soft); font-size: .9375rem; padding: 2.1rem 0; text-align: center;
  border-bottom: 1px solid var(--rule); }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-size: .9375rem; }
th { font-weight: 400; text-align: left; color: var(--soft); }
thead th { font-size: .8125rem; vertical-align: bottom; }
td, th { padding: .32rem 0 .32rem 1rem; border-top: 1px solid var(--rule); }
td:first-child, th:first-child { padding-left: 0; }
thead th, thead td { border-top: 0; }
.number { text-align: right; white-space: nowrap; }
.text { overflow-wrap: anywhere; color: var(--ink); }
.figures { margin-top: .8rem; font-size: .875rem; }
.share { color: var(--soft); font-size: .8125rem; }
.none { color: var(--soft); }
.meter { display: block; height: .5rem; min-width: 3.5rem; background: var(--tint);
  border-radius: 99px; overflow: hidden; }
.meter i { display: block; height: 100%; min-width: 2px; background: var(--c0); }
.steps { list-style: none; border-left: 2px solid var(--rule); margin-left: .4rem; }
.steps > li { position: relative; padding: 0 0 1.9rem 1.5rem; }
.steps > li:last-child { padding-bottom: 0; }
.steps > li::before { content: ""; position: absolute; left: calc(-.4rem - 1px); top: .35rem;
  width: .8rem; height: .8rem; border-radius: 50%; background: var(--accent);
  box-shadow: 0 0 0 4px var(--page); }
.steps time { color: var(--soft); font-size: .875rem; font-weight: 400; }
.terms { display: flex; flex-wrap: wrap; gap: .15rem 1.4rem; font-size: .875rem;
  margin-top: .35rem; }
.terms div { display: flex; gap: .4rem; min-width: 0; }
.terms dt { color: var(--soft); flex: none; }
.terms dd { overflow-wrap: anywhere; min-width: 0; }
pre { background: var(--tint); border: 1px solid var(--rule); border-radius: .5rem;
  padding: .65rem .85rem; margin-top: .7rem; white-space: pre-wrap; overflow-wrap: anywhere;
  font: .8125rem/1.5 ui-monospace, "SF Mono", Menlo, Consolas, "DejaVu Sans Mono", monospace; }
footer { margin-top: 4rem; padding-top: 1rem; border-top: 1px solid var(--rule);
  color: var(--soft); font-size: .8125rem; }
.hidden { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%);
  white-space: nowrap; }
@media (max-width: 30rem) {
  .page { padding-top: 2rem; }
  section { margin-top: 2.5rem; }
  svg.line { height: 12rem; }
  .series-plot .axis span:nth-child(even) { display: none; }
  .shape { column-gap: 1.25rem; }
  .shape dd { font-size: 1.4rem; }
}
@media (max-width: 24rem) {
  .card { padding-inline: 1rem; }
  .figures { font-size: .75rem; }
  .figures td { padding-left: .5rem; }
}
@media print {
  :root {
    color-scheme: light;
    --page: #fff; --card: #fff; --ink: #000; --soft: #444; --rule: #ccc; --tint: #f4f4f4;
    --accent: #1d4a7a; --accent-tint: #eef3f8; --grid: #ddd; --lift: none;
    --c0: #3a71b0; --c1: #c46f14; --c2: #2f8f73; --c3: #b04a86; --c4: #7a62c6; --c5: #767c85;
  }
  @page { margin: 16mm 14mm; }
  html { font-size: 12px; }
  body { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  .page { max-width: none; padding: 0; }
  nav { display: none; }
  section { margin-top: 1.8rem; }
  h2, h3, thead, .legend { break-after: avoid; }
  .card, .steps > li, tr { break-inside: avoid; }
  #tokens { min-width: 0; }
  .cards { grid-template-columns: repeat(2, minmax(0, 1fr)); gap: .8rem; }
  .cards:has(> .card.tall) { display: block; columns: 2; column-gap: .8rem; }
  .card.tall { break-inside: auto; margin-bottom: .8rem; }
  a { color: inherit; text-decoration: none; }
}
)css";

}  // namespace tslm5::host
