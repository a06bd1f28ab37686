<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>InputRow</name>
    <message>
        <source>Increase or decrease %1</source>
        <translation>%1 erhöhen oder verringern</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>; &quot;%1&quot; was not read</source>
        <translation>; &quot;%1&quot; wurde nicht gelesen</translation>
    </message>
    <message>
        <source> is used instead</source>
        <translation> wird stattdessen verwendet</translation>
    </message>
    <message>
        <source>%1 (%2 to %3)</source>
        <translation>%1 (%2 bis %3)</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>Component. A double click rounds it to the standard series, the context menu up or down.</source>
        <translation>Bauteil. Ein Doppelklick rundet auf die Normreihe, das Kontextmenü auf oder ab.</translation>
    </message>
    <message>
        <source>Transfer function</source>
        <translation>Übertragungsfunktion</translation>
    </message>
    <message>
        <source>First steps</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>Suggestions and quiz</source>
        <translation>Vorschläge und Quiz</translation>
    </message>
    <message>
        <source>How numbers are typed</source>
        <translation>Wie Zahlen eingegeben werden</translation>
    </message>
    <message>
        <source>What the outputs mean</source>
        <translation>Was die Ausgaben bedeuten</translation>
    </message>
    <message>
        <source>Standard values and Take</source>
        <translation>Normwerte und Übernehmen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Response plots</source>
        <translation>Frequenzgangbilder</translation>
    </message>
    <message>
        <source>Tolerances</source>
        <translation>Toleranzen</translation>
    </message>
    <message>
        <source>Optimization</source>
        <translation>Optimierung</translation>
    </message>
    <message>
        <source>Settings, export, printing</source>
        <translation>Einstellungen, Export, Druck</translation>
    </message>
    <message>
        <source>Finding networks for a band</source>
        <translation>Netzwerke für ein Band finden</translation>
    </message>
    <message>
        <source>The Tools menu</source>
        <translation>Das Menü Werkzeuge</translation>
    </message>
    <message>
        <source>Match an antenna</source>
        <translation>Eine Antenne anpassen</translation>
    </message>
    <message>
        <source>Tune on the Smith chart</source>
        <translation>Im Smith-Diagramm abstimmen</translation>
    </message>
    <message>
        <source>Compare two variants</source>
        <translation>Zwei Varianten vergleichen</translation>
    </message>
    <message>
        <source>Command line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Qt</source>
        <translation>Qt</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Lan&amp;guage</source>
        <translation>S&amp;prache</translation>
    </message>
    <message>
        <source>Of the &amp;system</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>Splash Screen at Sta&amp;rt</source>
        <translation>Startbild &amp;zeigen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>A double-click rounds to the standard series, the context menu up or down</source>
        <translation>Ein Doppelklick rundet auf die Normreihe, das Kontextmenü auf oder ab</translation>
    </message>
    <message>
        <source>%1 Files (*.%2)</source>
        <translation>%1-Dateien (*.%2)</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 gibt es schon.
Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild sichern</translation>
    </message>
    <message>
        <source>&amp;Switch</source>
        <translation>&amp;Vertauschen</translation>
    </message>
    <message>
        <source>Switch R1 and R2</source>
        <translation>R1 und R2 vertauschen</translation>
    </message>
    <message>
        <source>Round &amp;down</source>
        <translation>&amp;Abrunden</translation>
    </message>
    <message>
        <source>Round &amp;up</source>
        <translation>A&amp;ufrunden</translation>
    </message>
    <message>
        <source>Round to &amp;nearest</source>
        <translation>Auf den &amp;nächsten runden</translation>
    </message>
    <message>
        <source>Undo &amp;rounding</source>
        <translation>Runden &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>Btot</source>
        <translation>Btot</translation>
    </message>
    <message>
        <source>Bandwidth</source>
        <translation>Bandbreite</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>Q</translation>
    </message>
    <message>
        <source>Total effective element Q-factor</source>
        <translation>Gesamte wirksame Bauteilgüte</translation>
    </message>
    <message>
        <source>The limit of lossless networks is about %1 dB (an estimate: the source is no fixed resistance)</source>
        <translation>Die Grenze verlustloser Netzwerke liegt bei etwa %1 dB (geschätzt: Die Quelle ist kein fester Widerstand)</translation>
    </message>
    <message>
        <source>No lossless network does better than %1 dB</source>
        <translation>Kein verlustloses Netzwerk ist besser als %1 dB</translation>
    </message>
    <message>
        <source>passes DC</source>
        <translation>lässt Gleichstrom durch</translation>
    </message>
    <message>
        <source>blocks DC</source>
        <translation>sperrt Gleichstrom</translation>
    </message>
    <message>
        <source>grounds DC</source>
        <translation>schließt Gleichstrom kurz</translation>
    </message>
    <message>
        <source>1 dB from %1 up</source>
        <translation>1 dB ab %1</translation>
    </message>
    <message>
        <source>1 dB up to %1</source>
        <translation>1 dB bis %1</translation>
    </message>
    <message>
        <source>1 dB width %1 (%2 to %3)</source>
        <translation>1-dB-Bandbreite %1 (%2 bis %3)</translation>
    </message>
    <message>
        <source>%1 points, %2 to %3</source>
        <translation>%1 Punkte, %2 bis %3</translation>
    </message>
    <message>
        <source>its file is missing</source>
        <translation>ihre Datei fehlt</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program since it was read or saved here. Saving replaces what that one has written.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert, seit es hier gelesen oder gespeichert wurde. Speichern ersetzt, was jenes geschrieben hat.</translation>
    </message>
    <message>
        <source>Save any&amp;way</source>
        <translation>&amp;Trotzdem speichern</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
</context>
<context>
    <name>kelvro</name>
    <message>
        <source>Round All</source>
        <translation>Alles runden</translation>
    </message>
    <message>
        <source>Calculate</source>
        <translation>Berechnen</translation>
    </message>
    <message>
        <source>Switch</source>
        <translation>Vertauschen</translation>
    </message>
    <message>
        <source>Matching Networks</source>
        <translation>Anpassnetzwerke</translation>
    </message>
    <message>
        <source>For such integer or combinatorial optimizations pure down-hill search will often end in a local minimum. Stochastic optimizers like simulated  annealing are slow but much more reliable.</source>
        <translation>Bei solchen ganzzahligen oder kombinatorischen Optimierungen endet reine Abwärtssuche oft in einem lokalen Minimum. Stochastische Optimierer wie simuliertes Abkühlen sind langsam, aber viel zuverlässiger.</translation>
    </message>
    <message>
        <source>The two major design approaches are construction and optimization, often you mix them. How much construction makes sense and how much optimization depends highly on the designers capabilities, circuit type and spec difficulty. If your elements are near-ideal (like at low frequencies) and if you can easily over-design, then usually construction is leading to a ood solution. Which does not mean that no simulations and some tweaks are needed.</source>
        <translation>Die zwei wichtigsten Entwurfswege sind Konstruktion und Optimierung, oft mischt man sie. Wie viel Konstruktion und wie viel Optimierung sinnvoll ist, hängt stark vom Können des Entwicklers, von der Art der Schaltung und der Schwierigkeit der Vorgaben ab. Sind Ihre Bauteile fast ideal (wie bei niedrigen Frequenzen) und haben Sie reichlich Reserve, dann führt meist Konstruktion zu einer guten Lösung. Das heißt nicht, dass keine Simulationen und kein Nachstellen nötig wären.</translation>
    </message>
    <message>
        <source>However, for difficult circuits (like RF) optimization can make a lot sense, e.g. it could happen that already one change in a parameter like the W of the LNA transistor can change many performances (like NF, gain, input impedance, stability, bandwidth, etc.).</source>
        <translation>Bei schwierigen Schaltungen (wie HF) kann Optimierung jedoch sehr sinnvoll sein; schon eine Änderung eines Parameters wie W des LNA-Transistors kann viele Eigenschaften ändern (wie Rauschzahl, Verstärkung, Eingangsimpedanz, Stabilität, Bandbreite usw.).</translation>
    </message>
    <message>
        <source>If optimization makes sense then the question is often which optimizer to use. Global optimizer tend to be more robust but slower. Local optimizer may stop early on a local optimum, which might exist in some cases or it starting point is bad.</source>
        <translation>Ist Optimierung sinnvoll, stellt sich oft die Frage nach dem Optimierer. Globale Optimierer sind meist robuster, aber langsamer. Lokale Optimierer können früh in einem lokalen Optimum enden, das es in manchen Fällen oder bei schlechtem Startpunkt gibt.</translation>
    </message>
    <message>
        <source>Force steepest descent algorithm</source>
        <translation>Steilsten Abstieg erzwingen</translation>
    </message>
    <message>
        <source>is quite slow</source>
        <translation>ist recht langsam</translation>
    </message>
    <message>
        <source>Force no optimization</source>
        <translation>Keine Optimierung</translation>
    </message>
    <message>
        <source>Warning : leads too inaccurate parameters</source>
        <translation>Warnung: führt zu ungenauen Werten</translation>
    </message>
    <message>
        <source>Force single optimization run</source>
        <translation>Nur ein Optimierungslauf</translation>
    </message>
    <message>
        <source>Might be a bit unreliable, but is good to explore optimization algorithm.</source>
        <translation>Kann etwas unzuverlässig sein, ist aber gut, um den Algorithmus zu erkunden.</translation>
    </message>
    <message>
        <source>Force single-sided gradient calculation</source>
        <translation>Einseitigen Gradienten erzwingen</translation>
    </message>
    <message>
        <source>is a bit faster but less accurate</source>
        <translation>ist etwas schneller, aber weniger genau</translation>
    </message>
    <message>
        <source>Force different start values</source>
        <translation>Andere Startwerte erzwingen</translation>
    </message>
    <message>
        <source>is a bit slow, but allows estimation for accuracy</source>
        <translation>ist etwas langsam, erlaubt aber eine Schätzung der Genauigkeit</translation>
    </message>
    <message>
        <source>Force double-sided gradient calculation</source>
        <translation>Zweiseitigen Gradienten erzwingen</translation>
    </message>
    <message>
        <source>is a bit slower but most accurate</source>
        <translation>ist etwas langsamer, aber am genauesten</translation>
    </message>
    <message>
        <source>Do gradient checks</source>
        <translation>Gradienten prüfen</translation>
    </message>
    <message>
        <source>for performing internal accuracy analysis</source>
        <translation>für eine interne Genauigkeitsanalyse</translation>
    </message>
    <message>
        <source>Use enhanced start matrix</source>
        <translation>Verbesserte Startmatrix</translation>
    </message>
    <message>
        <source>wo. using full Hessian, is sometimes a bit faster </source>
        <translation>ohne die volle Hesse-Matrix, ist manchmal etwas schneller </translation>
    </message>
    <message>
        <source>No parameter clampings</source>
        <translation>Keine Begrenzung der Parameter</translation>
    </message>
    <message>
        <source>no clampings is sometimes faster, but might be less robust</source>
        <translation>ohne Begrenzung manchmal schneller, aber womöglich weniger robust</translation>
    </message>
    <message>
        <source>Thorough search for the lowest goal</source>
        <translation>Gründliche Suche nach dem kleinsten Ziel</translation>
    </message>
    <message>
        <source>looks everywhere; the design may end far from the calculated one</source>
        <translation>sucht überall; der Entwurf kann weit vom berechneten enden</translation>
    </message>
    <message>
        <source>Use max-norm</source>
        <translation>Maximumsnorm</translation>
    </message>
    <message>
        <source>worst point of the band counts, in case of Q&lt;0.2</source>
        <translation>der schlechteste Punkt des Bandes zählt, bei Q&lt;0.2</translation>
    </message>
    <message>
        <source>Add numerical noise</source>
        <translation>Numerisches Rauschen hinzufügen</translation>
    </message>
    <message>
        <source>to study the optimizer with inaccurate goal functions</source>
        <translation>um den Optimierer mit ungenauen Zielfunktionen zu untersuchen</translation>
    </message>
    <message>
        <source>Write csv</source>
        <translation>CSV schreiben</translation>
    </message>
    <message>
        <source>save detailed optimization data to file</source>
        <translation>ausführliche Optimierungsdaten in eine Datei schreiben</translation>
    </message>
    <message>
        <source>of the internal BFGS gradient optimizer</source>
        <translation>des internen BFGS-Gradientenoptimierers</translation>
    </message>
    <message>
        <source>if we would run all simulations in a sequence (and not in parallel)</source>
        <translation>wenn alle Simulationen nacheinander liefen (und nicht parallel)</translation>
    </message>
    <message>
        <source>the lower the better</source>
        <translation>je kleiner, desto besser</translation>
    </message>
    <message>
        <source>What it is good for</source>
        <translation>Wofür sie gut ist</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>Pads and parasitics</source>
        <translation>Lötflächen und Streugrößen</translation>
    </message>
    <message>
        <source>Typical values</source>
        <translation>Übliche Werte</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The code of this language, such as de</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open Network Pro&amp;ject...</source>
        <translation>Netzwerkpro&amp;jekt öffnen...</translation>
    </message>
    <message>
        <source>Sa&amp;ve</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Sichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>Printer &amp;Setup...</source>
        <translation>Drucker &amp;einrichten...</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Calculate</source>
        <translation>&amp;Berechnen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Sweep Factor</source>
        <translation>&amp;Schrittfaktor</translation>
    </message>
    <message>
        <source>&amp;Optimization setup</source>
        <translation>&amp;Optimierung einrichten</translation>
    </message>
    <message>
        <source>&amp;Execute</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>&amp;Clipboard</source>
        <translation>&amp;Zwischenablage</translation>
    </message>
    <message>
        <source>&amp;Calculator</source>
        <translation>&amp;Taschenrechner</translation>
    </message>
    <message>
        <source>&amp;Coils</source>
        <translation>&amp;Spulen</translation>
    </message>
    <message>
        <source>&amp;Transmission Line Parameters</source>
        <translation>&amp;Leitungsparameter</translation>
    </message>
    <message>
        <source>LC &amp;Filters</source>
        <translation>LC-&amp;Filter</translation>
    </message>
    <message>
        <source>Series/Parallel Circuits</source>
        <translation>Serien-/Parallelkreise</translation>
    </message>
    <message>
        <source>Mixed Series/Parallel Circuits</source>
        <translation>Gemischte Serien-/Parallelkreise</translation>
    </message>
    <message>
        <source>&amp;Decibel Calculations</source>
        <translation>&amp;Dezibelrechnung</translation>
    </message>
    <message>
        <source>&amp;Two-Ports</source>
        <translation>Z&amp;weitore</translation>
    </message>
    <message>
        <source>&amp;Network</source>
        <translation>&amp;Netzwerk</translation>
    </message>
    <message>
        <source>&amp;Open as Network</source>
        <translation>Als Netzwerk &amp;öffnen</translation>
    </message>
    <message>
        <source>Find &amp;Better...</source>
        <translation>&amp;Besseres finden...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Network &amp;Example</source>
        <translation>Netzwerk&amp;beispiel</translation>
    </message>
    <message>
        <source>Always Stay in &amp;Front</source>
        <translation>Immer im &amp;Vordergrund</translation>
    </message>
    <message>
        <source>&amp;Info...</source>
        <translation>&amp;Info...</translation>
    </message>
    <message>
        <source>E&amp;6 Series</source>
        <translation>E&amp;6-Reihe</translation>
    </message>
    <message>
        <source>E&amp;12 Series</source>
        <translation>E&amp;12-Reihe</translation>
    </message>
    <message>
        <source>E&amp;24 Series</source>
        <translation>E&amp;24-Reihe</translation>
    </message>
    <message>
        <source>E&amp;48 Series</source>
        <translation>E&amp;48-Reihe</translation>
    </message>
    <message>
        <source>E&amp;96 Series</source>
        <translation>E&amp;96-Reihe</translation>
    </message>
    <message>
        <source>&amp;Matching Pages</source>
        <translation>An&amp;passungsseiten</translation>
    </message>
    <message>
        <source>&amp;Attenuator Pages</source>
        <translation>&amp;Dämpfungsgliedseiten</translation>
    </message>
    <message>
        <source>&amp;Power Amplifier Pages</source>
        <translation>&amp;Leistungsverstärkerseiten</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Make calculations</source>
        <translation>Berechnung ausführen</translation>
    </message>
    <message>
        <source>Call another program</source>
        <translation>Ein anderes Programm aufrufen</translation>
    </message>
    <message>
        <source>Modify sweep factor</source>
        <translation>Schrittfaktor ändern</translation>
    </message>
    <message>
        <source>&amp;Copy window contents to clipboard</source>
        <translation>Fensterinhalt in die Zwis&amp;chenablage kopieren</translation>
    </message>
    <message>
        <source>Save INI file</source>
        <translation>INI-Datei sichern</translation>
    </message>
    <message>
        <source>Load INI file</source>
        <translation>INI-Datei laden</translation>
    </message>
    <message>
        <source>Graphic output of transfer function</source>
        <translation>Übertragungsfunktion grafisch ausgeben</translation>
    </message>
    <message>
        <source>Phi(f)</source>
        <translation>Phi(f)</translation>
    </message>
    <message>
        <source>Graphic output of phase shift</source>
        <translation>Phasendrehung grafisch ausgeben</translation>
    </message>
    <message>
        <source>Tol</source>
        <translation>Tol</translation>
    </message>
    <message>
        <source>Tolerances for Monte-Carlo analysis</source>
        <translation>Toleranzen für die Monte-Carlo-Analyse</translation>
    </message>
    <message>
        <source>Optimization</source>
        <translation>Optimierung</translation>
    </message>
    <message>
        <source>Global Opt</source>
        <translation>Globale Opt</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Networks between any source and load, Smith chart</source>
        <translation>Netzwerke zwischen beliebiger Quelle und Last, Smith-Diagramm</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Sugestions for circuit topology</source>
        <translation>Vorschläge für die Schaltung</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>Hel&amp;p</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Bitmap Dateien (*.bmp)|*.bmp</source>
        <translation>Bitmap-Dateien (*.bmp)|*.bmp</translation>
    </message>
    <message>
        <source>Meta Dateien (*.wmf)|*.wmf</source>
        <translation>Metadateien (*.wmf)|*.wmf</translation>
    </message>
    <message>
        <source>Bitmap Files (*.bmp)|*.bmp</source>
        <translation>Bitmap-Dateien (*.bmp)|*.bmp</translation>
    </message>
    <message>
        <source>Meta Files (*.wmf)|*.wmf</source>
        <translation>Metadateien (*.wmf)|*.wmf</translation>
    </message>
    <message>
        <source>JPEG Files (*.jpg)|*.jpg</source>
        <translation>JPEG-Dateien (*.jpg)|*.jpg</translation>
    </message>
    <message>
        <source>GIF Files (*.gif)|*.gif</source>
        <translation>GIF-Dateien (*.gif)|*.gif</translation>
    </message>
    <message>
        <source>PNG Files (*.png)|*.png</source>
        <translation>PNG-Dateien (*.png)|*.png</translation>
    </message>
    <message>
        <source>SVG Files (*.svg)|*.svg</source>
        <translation>SVG-Dateien (*.svg)|*.svg</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)|*.pdf</source>
        <translation>PDF-Dateien (*.pdf)|*.pdf</translation>
    </message>
    <message>
        <source>Table File|*.tab</source>
        <translation>Tabellendatei|*.tab</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)|*.csv</source>
        <translation>CSV-Dateien (*.csv)|*.csv</translation>
    </message>
    <message>
        <source>Click to set xmin</source>
        <translation>Klicken, um xmin zu setzen</translation>
    </message>
    <message>
        <source>Click to set xmax</source>
        <translation>Klicken, um xmax zu setzen</translation>
    </message>
    <message>
        <source>Click to set ymin</source>
        <translation>Klicken, um ymin zu setzen</translation>
    </message>
    <message>
        <source>Click to set ymax</source>
        <translation>Klicken, um ymax zu setzen</translation>
    </message>
    <message>
        <source>Click to set ymin of the right axis</source>
        <translation>Klicken, um ymin der rechten Achse zu setzen</translation>
    </message>
    <message>
        <source>Click to set ymax of the right axis</source>
        <translation>Klicken, um ymax der rechten Achse zu setzen</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Enlarge the window</source>
        <translation>Fenster vergrößern</translation>
    </message>
    <message>
        <source>Reduce the window</source>
        <translation>Fenster verkleinern</translation>
    </message>
    <message>
        <source>Standard size of the window</source>
        <translation>Fenster in Standardgröße</translation>
    </message>
    <message>
        <source>Scale both axes to the curve</source>
        <translation>Beide Achsen an die Kurve anpassen</translation>
    </message>
    <message>
        <source>Logarithmic frequency axis</source>
        <translation>Logarithmische Frequenzachse</translation>
    </message>
    <message>
        <source>Zoom in (or turn the wheel at a place)</source>
        <translation>Vergrößern (oder das Rad an einer Stelle drehen)</translation>
    </message>
    <message>
        <source>Zoom out (or turn the wheel at a place)</source>
        <translation>Verkleinern (oder das Rad an einer Stelle drehen)</translation>
    </message>
    <message>
        <source>Back to the whole view around fo (Home)</source>
        <translation>Zurück zur ganzen Ansicht um fo (Pos1)</translation>
    </message>
    <message>
        <source>Curve as line, line with dots, dashed line</source>
        <translation>Kurve als Linie, Linie mit Punkten, gestrichelte Linie</translation>
    </message>
    <message>
        <source>Harmo&amp;nics of fo</source>
        <translation>H&amp;armonische von fo</translation>
    </message>
    <message>
        <source>Level Mar&amp;ks</source>
        <translation>Pe&amp;gelmarken</translation>
    </message>
    <message>
        <source>&amp;Dark Plot</source>
        <translation>Dunkles &amp;Bild</translation>
    </message>
    <message>
        <source>&amp;Band Edges</source>
        <translation>&amp;Bandgrenzen</translation>
    </message>
    <message>
        <source>&amp;Save as Bitmap...</source>
        <translation>Als &amp;Bitmap sichern...</translation>
    </message>
    <message>
        <source>Save as &amp;Metafile...</source>
        <translation>Als &amp;Metadatei sichern...</translation>
    </message>
    <message>
        <source>Save as &amp;JPEG...</source>
        <translation>Als &amp;JPEG sichern...</translation>
    </message>
    <message>
        <source>Save as &amp;GIF...</source>
        <translation>Als &amp;GIF sichern...</translation>
    </message>
    <message>
        <source>Save as P&amp;NG...</source>
        <translation>Als P&amp;NG sichern...</translation>
    </message>
    <message>
        <source>Save as S&amp;VG...</source>
        <translation>Als S&amp;VG sichern...</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>Als P&amp;DF sichern...</translation>
    </message>
    <message>
        <source>Save as &amp;Table...</source>
        <translation>Als &amp;Tabelle sichern...</translation>
    </message>
    <message>
        <source>Sav&amp;e as CSV...</source>
        <translation>Als &amp;CSV sichern...</translation>
    </message>
    <message>
        <source>All that is drawn, as numbers with all their digits</source>
        <translation>Alles Gezeichnete, als Zahlen mit allen Stellen</translation>
    </message>
    <message>
        <source>Capti&amp;on in Pictures</source>
        <translation>Bildunter&amp;schrift</translation>
    </message>
    <message>
        <source>Writes page, inputs, parts, markers and the day below what is saved, copied and printed</source>
        <translation>Schreibt Seite, Eingaben, Bauteile, Marken und Tag unter alles, was gesichert, kopiert und gedruckt wird</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Enlarge</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>&amp;Reduce</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Standard Size</source>
        <translation>&amp;Standardgröße</translation>
    </message>
    <message>
        <source>&amp;Autoscale</source>
        <translation>&amp;Autoskalierung</translation>
    </message>
    <message>
        <source>&amp;x Autoscale</source>
        <translation>&amp;x autoskalieren</translation>
    </message>
    <message>
        <source>&amp;y Autoscale</source>
        <translation>&amp;y autoskalieren</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Zoom h&amp;inein</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Zoom h&amp;eraus</translation>
    </message>
    <message>
        <source>&amp;Home View</source>
        <translation>&amp;Ganze Ansicht</translation>
    </message>
    <message>
        <source>x &amp;log</source>
        <translation>x &amp;log</translation>
    </message>
    <message>
        <source>Axis Li&amp;mits...</source>
        <translation>Achsen&amp;grenzen...</translation>
    </message>
    <message>
        <source>Set Ori&amp;gin...</source>
        <translation>&amp;Ursprung festlegen...</translation>
    </message>
    <message>
        <source>&amp;Curve Style</source>
        <translation>K&amp;urvenart</translation>
    </message>
    <message>
        <source>&amp;Set Marker</source>
        <translation>Marke &amp;setzen</translation>
    </message>
    <message>
        <source>On the curve, where the keys read it or the mouse is (or double-click)</source>
        <translation>Auf der Kurve, wo die Tasten sie ablesen oder die Maus ist (oder Doppelklick)</translation>
    </message>
    <message>
        <source>&amp;Delete Marker</source>
        <translation>Marke &amp;löschen</translation>
    </message>
    <message>
        <source>The one nearest to the reading or to the mouse</source>
        <translation>Die der Ablesung oder der Maus nächste</translation>
    </message>
    <message>
        <source>Delete &amp;All Markers</source>
        <translation>&amp;Alle Marken löschen</translation>
    </message>
    <message>
        <source>&amp;Hold Curve...</source>
        <translation>Kurve &amp;halten...</translation>
    </message>
    <message>
        <source>Keeps the present curve, to compare others with it</source>
        <translation>Behält die gegenwärtige Kurve, um andere mit ihr zu vergleichen</translation>
    </message>
    <message>
        <source>&amp;Release Held Curves</source>
        <translation>Gehaltene Kurven &amp;freigeben</translation>
    </message>
    <message>
        <source>&amp;One Run</source>
        <translation>&amp;Ein Lauf</translation>
    </message>
    <message>
        <source>&amp;Ten Runs</source>
        <translation>&amp;Zehn Läufe</translation>
    </message>
    <message>
        <source>A &amp;Hundred Runs</source>
        <translation>&amp;Hundert Läufe</translation>
    </message>
    <message>
        <source>&amp;Keep Runs</source>
        <translation>Läufe &amp;behalten</translation>
    </message>
    <message>
        <source>Draws the runs again after every change of the view or the design</source>
        <translation>Zeichnet die Läufe nach jeder Änderung der Ansicht oder des Entwurfs neu</translation>
    </message>
    <message>
        <source>&amp;Envelope and Percentiles</source>
        <translation>Einhüllende und &amp;Perzentile</translation>
    </message>
    <message>
        <source>Within what all runs and nine tenths of them lie, and their median</source>
        <translation>Worin alle Läufe und neun Zehntel von ihnen liegen, und ihr Median</translation>
    </message>
    <message>
        <source>&amp;Seed...</source>
        <translation>&amp;Startwert...</translation>
    </message>
    <message>
        <source>The same random parts each time, or others</source>
        <translation>Jedes Mal dieselben zufälligen Bauteile, oder andere</translation>
    </message>
    <message>
        <source>&amp;Clear Runs</source>
        <translation>Läufe &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Help on plots</source>
        <translation>&amp;Hilfe zu Bildern</translation>
    </message>
    <message>
        <source>One Monte Carlo run within the tolerances</source>
        <translation>Ein Monte-Carlo-Lauf in den Toleranzen</translation>
    </message>
    <message>
        <source>Ten Monte Carlo runs</source>
        <translation>Zehn Monte-Carlo-Läufe</translation>
    </message>
    <message>
        <source>A hundred Monte Carlo runs</source>
        <translation>Hundert Monte-Carlo-Läufe</translation>
    </message>
    <message>
        <source>Autoscale</source>
        <translation>Autoskalierung</translation>
    </message>
    <message>
        <source>Autoscale of x</source>
        <translation>Autoskalierung von x</translation>
    </message>
    <message>
        <source>Autoscale of y</source>
        <translation>Autoskalierung von y</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Ursprung</translation>
    </message>
    <message>
        <source>Home View</source>
        <translation>Ganze Ansicht</translation>
    </message>
    <message>
        <source>Axis Limits</source>
        <translation>Achsengrenzen</translation>
    </message>
    <message>
        <source>Matching Network and PA Design</source>
        <translation>Anpassnetzwerke und Endstufen</translation>
    </message>
    <message>
        <source>Take Entries</source>
        <translation>Einträge übernehmen</translation>
    </message>
    <message>
        <source>Take and Optimize</source>
        <translation>Übernehmen und optimieren</translation>
    </message>
    <message>
        <source>To calculate the circuit</source>
        <translation>Die Schaltung berechnen</translation>
    </message>
    <message>
        <source>Take E&amp;ntries</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>Take values now from output fields for graphical display</source>
        <translation>Werte jetzt aus den Ausgabefeldern für die Grafik übernehmen</translation>
    </message>
    <message>
        <source>Take and Optimi&amp;ze</source>
        <translation>Übernehmen und optimie&amp;ren</translation>
    </message>
    <message>
        <source>Take values from output fields and optimize from there</source>
        <translation>Werte aus den Ausgabefeldern übernehmen und von dort optimieren</translation>
    </message>
    <message>
        <source>Round &amp;All</source>
        <translation>&amp;Alles runden</translation>
    </message>
    <message>
        <source>Round all components of the page to the chosen standard series</source>
        <translation>Alle Bauteile der Seite auf die gewählte Normreihe runden</translation>
    </message>
    <message>
        <source>Gui&amp;de</source>
        <translation>Rat&amp;geber</translation>
    </message>
    <message>
        <source>Which optimizer suits, and how long it takes</source>
        <translation>Welcher Optimierer passt und wie lange er braucht</translation>
    </message>
    <message>
        <source>Circ&amp;uit Hints</source>
        <translation>Hin&amp;weise</translation>
    </message>
    <message>
        <source>What is worth knowing of this circuit</source>
        <translation>Was über diese Schaltung zu wissen ist</translation>
    </message>
    <message>
        <source>Expo&amp;rt</source>
        <translation>Expo&amp;rt</translation>
    </message>
    <message>
        <source>The circuit in the forms that other tools read</source>
        <translation>Die Schaltung in den Formen, die andere Werkzeuge lesen</translation>
    </message>
    <message>
        <source>Ex&amp;it</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Save the settings and end the program</source>
        <translation>Einstellungen sichern und das Programm beenden</translation>
    </message>
    <message>
        <source>The manual</source>
        <translation>Das Handbuch</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>E&amp;6 Series (20%)</source>
        <translation>E&amp;6-Reihe (20%)</translation>
    </message>
    <message>
        <source>E1&amp;2 Series (10%)</source>
        <translation>E1&amp;2-Reihe (10%)</translation>
    </message>
    <message>
        <source>E2&amp;4 Series (5%)</source>
        <translation>E2&amp;4-Reihe (5%)</translation>
    </message>
    <message>
        <source>E4&amp;8 Series (2%)</source>
        <translation>E4&amp;8-Reihe (2%)</translation>
    </message>
    <message>
        <source>E&amp;96 Series (1%)</source>
        <translation>E&amp;96-Reihe (1%)</translation>
    </message>
    <message>
        <source>Q by d</source>
        <translation>Q aus d</translation>
    </message>
    <message>
        <source>Output Power P</source>
        <translation>Leistung P</translation>
    </message>
    <message>
        <source>Power to be delivered at fo</source>
        <translation>Bei fo abzugebende Leistung</translation>
    </message>
    <message>
        <source>Supply Voltage Ub</source>
        <translation>Versorgung Ub</translation>
    </message>
    <message>
        <source>Supply of the stage</source>
        <translation>Versorgung der Stufe</translation>
    </message>
    <message>
        <source>Saturation Voltage Usat</source>
        <translation>Sättigung Usat</translation>
    </message>
    <message>
        <source>Voltage that the switched-on transistor keeps; lower than Ub</source>
        <translation>Restspannung des durchgeschalteten Transistors; kleiner als Ub</translation>
    </message>
    <message>
        <source>RLopt</source>
        <translation>RLopt</translation>
    </message>
    <message>
        <source>Calculate &amp;RLopt</source>
        <translation>&amp;RLopt berechnen</translation>
    </message>
    <message>
        <source>Load resistance that the amplifier wants, to be matched to the real load afterwards</source>
        <translation>Lastwiderstand, den der Verstärker sehen will; danach an die wirkliche Last anzupassen</translation>
    </message>
    <message>
        <source>The load resistance that a power amplifier wants to see for a given output power and supply: enter it as R1 of a matching page (the button does that).</source>
        <translation>Der Lastwiderstand, den ein Leistungsverstärker für gegebene Ausgangsleistung und Versorgung sehen will: Tragen Sie ihn als R1 einer Anpassungsseite ein (das tut der Knopf).</translation>
    </message>
    <message>
        <source>Holds for full voltage swing in class A or B without harmonics; real efficiency is lower by the losses of the network.</source>
        <translation>Gilt für volle Aussteuerung in Klasse A oder B ohne Oberwellen; der wirkliche Wirkungsgrad ist um die Verluste des Netzwerks kleiner.</translation>
    </message>
    <message>
        <source>The output capacitance of the transistor lies across this resistance; tune it out with the feed choke or absorb it in the network.</source>
        <translation>Die Ausgangskapazität des Transistors liegt parallel zu diesem Widerstand; stimmen Sie sie mit der Speisedrossel weg oder nehmen Sie sie ins Netzwerk auf.</translation>
    </message>
    <message>
        <source>Battery devices of 1 W at 3.6 V want about 5 ohm, 12 V stages 60 to 70 ohm.</source>
        <translation>Batteriegeräte mit 1 W bei 3.6 V wollen etwa 5 Ohm, 12-V-Stufen 60 bis 70 Ohm.</translation>
    </message>
    <message>
        <source>Use as R1</source>
        <translation>Als R1 übernehmen</translation>
    </message>
    <message>
        <source>Make RL the source resistance R1 of the matching pages</source>
        <translation>RL wird Quellwiderstand R1 der Anpassungsseiten</translation>
    </message>
    <message>
        <source>Load Resistance RL</source>
        <translation>Lastwiderstand RL</translation>
    </message>
    <message>
        <source>Load that draws the power P with full voltage swing</source>
        <translation>Last, die bei voller Aussteuerung die Leistung P aufnimmt</translation>
    </message>
    <message>
        <source>Peak Current I1</source>
        <translation>Spitzenstrom I1</translation>
    </message>
    <message>
        <source>Amplitude of the fundamental in the load</source>
        <translation>Amplitude der Grundwelle in der Last</translation>
    </message>
    <message>
        <source>Efficiency Class A</source>
        <translation>Wirkungsgrad Klasse A</translation>
    </message>
    <message>
        <source>Largest drain efficiency in class A</source>
        <translation>Größter Kollektorwirkungsgrad in Klasse A</translation>
    </message>
    <message>
        <source>Efficiency Class B</source>
        <translation>Wirkungsgrad Klasse B</translation>
    </message>
    <message>
        <source>Largest drain efficiency in class B</source>
        <translation>Größter Kollektorwirkungsgrad in Klasse B</translation>
    </message>
    <message>
        <source>Supply Current Class B</source>
        <translation>Speisestrom Klasse B</translation>
    </message>
    <message>
        <source>Mean supply current at full drive</source>
        <translation>Mittlerer Speisestrom bei voller Aussteuerung</translation>
    </message>
    <message>
        <source>v is too large for this resistance ratio! Largest possible v is %1</source>
        <translation>v ist zu groß für dieses Widerstandsverhältnis! Größtmögliches v ist %1</translation>
    </message>
    <message>
        <source>Pi</source>
        <translation>Pi</translation>
    </message>
    <message>
        <source>T: Resistance Ra</source>
        <translation>T: Widerstand Ra</translation>
    </message>
    <message>
        <source>T: Resistance Rp</source>
        <translation>T: Widerstand Rp</translation>
    </message>
    <message>
        <source>T: Resistance Rb</source>
        <translation>T: Widerstand Rb</translation>
    </message>
    <message>
        <source>Pi: Resistance Ra</source>
        <translation>Pi: Widerstand Ra</translation>
    </message>
    <message>
        <source>Pi: Resistance Rs</source>
        <translation>Pi: Widerstand Rs</translation>
    </message>
    <message>
        <source>Pi: Resistance Rb</source>
        <translation>Pi: Widerstand Rb</translation>
    </message>
    <message>
        <source>T section: in series on the source side</source>
        <translation>T-Glied: längs auf der Quellseite</translation>
    </message>
    <message>
        <source>T section: from the middle to ground</source>
        <translation>T-Glied: von der Mitte nach Masse</translation>
    </message>
    <message>
        <source>T section: in series on the load side</source>
        <translation>T-Glied: längs auf der Lastseite</translation>
    </message>
    <message>
        <source>Pi section: across the source; infinite: leave it out</source>
        <translation>Pi-Glied: parallel zur Quelle; infinite: weglassen</translation>
    </message>
    <message>
        <source>Pi section: in series between the two shunt resistors</source>
        <translation>Pi-Glied: längs zwischen den beiden Querwiderständen</translation>
    </message>
    <message>
        <source>Pi section: across the load; infinite: leave it out</source>
        <translation>Pi-Glied: parallel zur Last; infinite: weglassen</translation>
    </message>
    <message>
        <source>Attenuation</source>
        <translation>Dämpfung</translation>
    </message>
    <message>
        <source>Power at R1 over power at R2</source>
        <translation>Leistung an R1 zu Leistung an R2</translation>
    </message>
    <message>
        <source>Passive L Section</source>
        <translation>Passives L-Glied</translation>
    </message>
    <message>
        <source>Passive &amp;L Section</source>
        <translation>Passives &amp;L-Glied</translation>
    </message>
    <message>
        <source>Resistive L pad, flat from DC up, with the least loss of all pads</source>
        <translation>Ohmsches L-Glied, ab Gleichstrom frequenzunabhängig, mit der kleinsten Dämpfung aller Glieder</translation>
    </message>
    <message>
        <source>The L-pad with the least loss that matches both ends, from direct current to the highest frequencies. Good for measurement set-ups.</source>
        <translation>Das L-Dämpfungsglied mit der kleinsten Dämpfung, das beide Seiten anpasst, von Gleichstrom bis zu den höchsten Frequenzen. Gut für Messaufbauten.</translation>
    </message>
    <message>
        <source>R1 must be larger than R2. The attenuation follows from the ratio: 50 to 75 ohm costs 5.7 dB, 50 to 200 ohm 11.4 dB.</source>
        <translation>R1 muss größer als R2 sein. Die Dämpfung folgt aus dem Verhältnis: 50 auf 75 Ohm kostet 5.7 dB, 50 auf 200 Ohm 11.4 dB.</translation>
    </message>
    <message>
        <source>The stray capacitance across the series resistor bypasses it at high frequencies, the lead inductance of the shunt resistor blocks it. Small chip resistors reach several GHz.</source>
        <translation>Die Streukapazität über dem Längswiderstand überbrückt ihn bei hohen Frequenzen, die Zuleitungsinduktivität des Querwiderstands sperrt ihn ab. Kleine Chipwiderstände reichen bis zu einigen GHz.</translation>
    </message>
    <message>
        <source>Use E96 values with 1 %: parts of 5 % limit the return loss to about 32 dB.</source>
        <translation>Nehmen Sie E96-Werte mit 1 %: Teile mit 5 % begrenzen die Rückflussdämpfung auf etwa 32 dB.</translation>
    </message>
    <message>
        <source>Damping not adjustable, depending on R ratio</source>
        <translation>Dämpfung nicht wählbar, folgt aus dem R-Verhältnis</translation>
    </message>
    <message>
        <source>Resistance R1´</source>
        <translation>Widerstand R1´</translation>
    </message>
    <message>
        <source>Resistance R2´</source>
        <translation>Widerstand R2´</translation>
    </message>
    <message>
        <source>Passive Pi/T Section</source>
        <translation>Passives Pi-/T-Glied</translation>
    </message>
    <message>
        <source>Passive &amp;Pi/T Section</source>
        <translation>Passives &amp;Pi-/T-Glied</translation>
    </message>
    <message>
        <source>Resistive pad, flat from DC up, matched at both ends</source>
        <translation>Ohmsches Dämpfungsglied, ab Gleichstrom frequenzunabhängig, beidseitig angepasst</translation>
    </message>
    <message>
        <source>A pad that matches two resistances with a chosen attenuation. Pi and T give the same result; choose the one whose values are easier.</source>
        <translation>Ein Dämpfungsglied, das zwei Widerstände mit wählbarer Dämpfung anpasst. Pi und T ergeben dasselbe; nehmen Sie das mit den handlicheren Werten.</translation>
    </message>
    <message>
        <source>The attenuation cannot be smaller than that of the minimum-loss pad of this ratio.</source>
        <translation>Die Dämpfung kann nicht kleiner sein als die des Glieds mit der kleinsten Dämpfung für dieses Verhältnis.</translation>
    </message>
    <message>
        <source>In Pi form the shunt strays of the pads join the resistors&apos; ends and disturb less; in T form the lead inductances do.</source>
        <translation>Beim Pi-Glied liegen die Streukapazitäten der Lötflächen an den Enden und stören weniger; beim T-Glied gilt das für die Zuleitungsinduktivitäten.</translation>
    </message>
    <message>
        <source>Resistors between 5 ohm and 1 kohm behave well up to some GHz.</source>
        <translation>Widerstände zwischen 5 Ohm und 1 kOhm verhalten sich bis zu einigen GHz gut.</translation>
    </message>
    <message>
        <source>matched at both ends; build either the T or the Pi</source>
        <translation>beidseitig angepasst; T oder Pi bauen</translation>
    </message>
    <message>
        <source>Both have the same attenuation at every frequency</source>
        <translation>Beide haben bei jeder Frequenz dieselbe Dämpfung</translation>
    </message>
    <message>
        <source>Voltage Ratio v=V2/V1</source>
        <translation>Spannungsverh. v=V2/V1</translation>
    </message>
    <message>
        <source>Wanted ratio of load to source voltage; unequal resistances set an upper limit</source>
        <translation>Gewünschtes Verhältnis von Last- zu Quellspannung; ungleiche Widerstände setzen eine obere Grenze</translation>
    </message>
    <message>
        <source>LC Balun</source>
        <translation>LC-Balun</translation>
    </message>
    <message>
        <source>LC &amp;All-Pass</source>
        <translation>LC-&amp;Allpass</translation>
    </message>
    <message>
        <source>Lattice balun with two outputs of opposite phase</source>
        <translation>Brückenbalun mit zwei gegenphasigen Ausgängen</translation>
    </message>
    <message>
        <source>Lattice balun: one unbalanced source, two outputs of opposite phase. Four parts, no transformer, accurate at fo.</source>
        <translation>Brückenbalun: eine unsymmetrische Quelle, zwei gegenphasige Ausgänge. Vier Bauteile, kein Übertrager, genau bei fo.</translation>
    </message>
    <message>
        <source>Narrow: phase and amplitude are exact at fo only, usable over about 10 to 20 % of fo. Balance falls quickly when the loads differ.</source>
        <translation>Schmalbandig: Phase und Amplitude stimmen nur bei fo genau, brauchbar über etwa 10 bis 20 % von fo. Die Symmetrie nimmt schnell ab, wenn die Lasten verschieden sind.</translation>
    </message>
    <message>
        <source>Pad capacitances at the + output belong to its C; at the − output they detune the shunt L, which should then be a little smaller. Keep both branches alike in layout.</source>
        <translation>Kapazitäten der Lötflächen am +-Ausgang gehören zu dessen C; am −-Ausgang verstimmen sie das Quer-L, das dann etwas kleiner sein sollte. Legen Sie beide Zweige gleich an.</translation>
    </message>
    <message>
        <source>L and C of both branches are equal, so buy one value each; match them within 1 %.</source>
        <translation>L und C beider Zweige sind gleich, also kaufen Sie je einen Wert; sie sollen auf 1 % übereinstimmen.</translation>
    </message>
    <message>
        <source>R1 unbalanced, R2 at each of two opposite outputs</source>
        <translation>R1 unsymmetrisch, R2 an jedem der zwei gegenphasigen Ausgänge</translation>
    </message>
    <message>
        <source>2·R2 from output to output; the outputs lag and lead the source by 90°</source>
        <translation>2·R2 von Ausgang zu Ausgang; die Ausgänge eilen der Quelle um 90° nach und vor</translation>
    </message>
    <message>
        <source>Inductance L</source>
        <translation>Induktivität L</translation>
    </message>
    <message>
        <source>Capacitance C</source>
        <translation>Kapazität C</translation>
    </message>
    <message>
        <source>The same inductance in both branches</source>
        <translation>Dieselbe Induktivität in beiden Zweigen</translation>
    </message>
    <message>
        <source>The same capacitance in both branches</source>
        <translation>Dieselbe Kapazität in beiden Zweigen</translation>
    </message>
    <message>
        <source>Bandwidth too large for this inductance! Increase Q or change L.</source>
        <translation>Bandbreite zu groß für diese Induktivität! Vergrößern Sie Q oder ändern Sie L.</translation>
    </message>
    <message>
        <source>Band-Pass</source>
        <translation>Bandpass</translation>
    </message>
    <message>
        <source>&amp;Capacitive Coupled Band-Pass</source>
        <translation>&amp;Kapazitiv gekoppelter Bandpass</translation>
    </message>
    <message>
        <source>Coupled resonators with steep skirts</source>
        <translation>Gekoppelte Kreise mit steilen Flanken</translation>
    </message>
    <message>
        <source>Capacitively coupled resonators: a real band-pass filter that also matches. Butterworth or Chebyshev, 1 to 8 resonators with equal coils.</source>
        <translation>Kapazitiv gekoppelte Kreise: ein echter Bandpass, der auch anpasst. Butterworth oder Tschebyscheff, 1 bis 8 Kreise mit gleichen Spulen.</translation>
    </message>
    <message>
        <source>Relative bandwidth 1/Q up to about 20 %. The upper stop-band is less steep than the lower. Losses grow with the number of resonators and with Q/QL.</source>
        <translation>Relative Bandbreite 1/Q bis etwa 20 %. Der obere Sperrbereich ist weniger steil als der untere. Die Verluste wachsen mit der Zahl der Kreise und mit Q/QL.</translation>
    </message>
    <message>
        <source>Pads and coil capacitances belong to the resonator capacitors. Couple the coils by distance or shields as little as possible.</source>
        <translation>Lötflächen und Spulenkapazitäten gehören zu den Kreiskondensatoren. Koppeln Sie die Spulen durch Abstand oder Schirme so wenig wie möglich.</translation>
    </message>
    <message>
        <source>Choose L so that the resonator capacitors can be bought and the couplings stay above about 0.5 pF.</source>
        <translation>Wählen Sie L so, dass es die Kreiskondensatoren zu kaufen gibt und die Koppelkondensatoren über etwa 0.5 pF bleiben.</translation>
    </message>
    <message>
        <source>Resonators from L(BP) and C across, coupled by capacitors</source>
        <translation>Kreise aus L(BP) und C quer, gekoppelt durch Kondensatoren</translation>
    </message>
    <message>
        <source>Relative bandwidth 1/Q; exact in narrow bands</source>
        <translation>Relative Bandbreite 1/Q; genau bei schmalen Bändern</translation>
    </message>
    <message>
        <source>Inductance L(BP)</source>
        <translation>Induktivität L(BP)</translation>
    </message>
    <message>
        <source>Inductance of every resonator; smaller: larger capacitors, wider band</source>
        <translation>Induktivität jedes Kreises; kleiner: größere Kondensatoren, breiteres Band</translation>
    </message>
    <message>
        <source>Resonators N(BP)</source>
        <translation>Kreise N(BP)</translation>
    </message>
    <message>
        <source>Number of resonators, 1 to 8</source>
        <translation>Zahl der Kreise, 1 bis 8</translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation>Welligkeit</translation>
    </message>
    <message>
        <source>Ripple in the pass band, 0 to 3 dB; 0: maximally flat (Butterworth)</source>
        <translation>Welligkeit im Durchlassbereich, 0 bis 3 dB; 0: maximal flach (Butterworth)</translation>
    </message>
    <message>
        <source>Band from</source>
        <translation>Band ab</translation>
    </message>
    <message>
        <source>Lower edge of the band in which the worst gain counts; 0: 0.7·fo</source>
        <translation>Untere Grenze des Bandes, in dem die schlechteste Verstärkung zählt; 0: 0.7·fo</translation>
    </message>
    <message>
        <source>Band to</source>
        <translation>Band bis</translation>
    </message>
    <message>
        <source>Upper edge of the band in which the worst gain counts; 0: 1.3·fo</source>
        <translation>Obere Grenze des Bandes, in dem die schlechteste Verstärkung zählt; 0: 1.3·fo</translation>
    </message>
    <message>
        <source>Inductance L1</source>
        <translation>Induktivität L1</translation>
    </message>
    <message>
        <source>Inductance L2</source>
        <translation>Induktivität L2</translation>
    </message>
    <message>
        <source>Capacitance C1</source>
        <translation>Kapazität C1</translation>
    </message>
    <message>
        <source>Capacitance C2</source>
        <translation>Kapazität C2</translation>
    </message>
    <message>
        <source>Inductance L3</source>
        <translation>Induktivität L3</translation>
    </message>
    <message>
        <source>Inductance L4</source>
        <translation>Induktivität L4</translation>
    </message>
    <message>
        <source>Capacitance C3</source>
        <translation>Kapazität C3</translation>
    </message>
    <message>
        <source>Capacitance C4</source>
        <translation>Kapazität C4</translation>
    </message>
    <message>
        <source>Broadband Match</source>
        <translation>Breitbandanpassung</translation>
    </message>
    <message>
        <source>&amp;Broadband Match</source>
        <translation>&amp;Breitbandanpassung</translation>
    </message>
    <message>
        <source>Ladder of L-sections for a wide band</source>
        <translation>Kette von L-Gliedern für ein breites Band</translation>
    </message>
    <message>
        <source>Low-pass ladder of two or four L-sections, refined over the band: broad match with harmonic suppression.</source>
        <translation>Tiefpasskette aus zwei oder vier L-Gliedern, über das Band verfeinert: breite Anpassung mit Oberwellenunterdrückung.</translation>
    </message>
    <message>
        <source>R2 must be larger than R1. The flatter the wider it is asked to be, the lower the best transmission (Bode and Fano). Q is set to 0.2 on entry: the optimizer then weighs the whole band.</source>
        <translation>R2 muss größer als R1 sein. Je breiter es flach sein soll, desto niedriger ist die beste Übertragung (Bode und Fano). Q wird beim Öffnen auf 0.2 gesetzt: Der Optimierer gewichtet dann das ganze Band.</translation>
    </message>
    <message>
        <source>Every shunt capacitor takes the pad at its node. Coils of low impedance sections are small: count leads in.</source>
        <translation>Jeder Querkondensator nimmt die Lötfläche an seinem Knoten auf. Spulen niederohmiger Glieder sind klein: Rechnen Sie Zuleitungen mit.</translation>
    </message>
    <message>
        <source>Eight elements cover an octave and more at a ratio of 4.</source>
        <translation>Acht Elemente überdecken eine Oktave und mehr bei einem Verhältnis von 4.</translation>
    </message>
    <message>
        <source>For R1&lt;R2, low-pass, refined over a band</source>
        <translation>Für R1&lt;R2, Tiefpass, im Band verfeinert</translation>
    </message>
    <message>
        <source>Q up to 0.21: broad band; larger Q: the loaded Q is kept</source>
        <translation>Q bis 0.21: breites Band; größeres Q: die Betriebsgüte wird eingehalten</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>The gain that is worst between the two edges is made as high as can be; cleared: gains around fo, weighted</source>
        <translation>Die schlechteste Verstärkung zwischen den beiden Grenzen wird so hoch wie möglich; ohne Haken: Verstärkungen um fo, gewichtet</translation>
    </message>
    <message>
        <source>8 elements</source>
        <translation>8 Elemente</translation>
    </message>
    <message>
        <source>Four sections instead of two: wider band, flatter response</source>
        <translation>Vier Glieder statt zwei: breiteres Band, flacherer Verlauf</translation>
    </message>
    <message>
        <source>Power in R, harmonics included, where the parts have no loss</source>
        <translation>Leistung in R samt Oberwellen, wenn die Bauteile keine Verluste haben</translation>
    </message>
    <message>
        <source>Q-Factor</source>
        <translation>Güte Q</translation>
    </message>
    <message>
        <source>Loaded Q of L2, C2 and R, above 1.79; 5 to 10 is usual</source>
        <translation>Betriebsgüte von L2, C2 und R, über 1.79; üblich sind 5 bis 10</translation>
    </message>
    <message>
        <source>Choke ωLc/R</source>
        <translation>Drossel ωLc/R</translation>
    </message>
    <message>
        <source>Reactance of the supply choke at fo in units of R: 5 to 200</source>
        <translation>Blindwiderstand der Speisedrossel bei fo in Einheiten von R: 5 bis 200</translation>
    </message>
    <message>
        <source>Choke</source>
        <translation>Drossel</translation>
    </message>
    <message>
        <source>Load Resistance R</source>
        <translation>Lastwiderstand R</translation>
    </message>
    <message>
        <source>Choke Lc</source>
        <translation>Drossel Lc</translation>
    </message>
    <message>
        <source>Peak Voltage Upk</source>
        <translation>Spitzenspannung Upk</translation>
    </message>
    <message>
        <source>Largest voltage across the switch</source>
        <translation>Größte Spannung am Schalter</translation>
    </message>
    <message>
        <source>Peak Current Ipk</source>
        <translation>Spitzenstrom Ipk</translation>
    </message>
    <message>
        <source>Largest current through the switch</source>
        <translation>Größter Strom durch den Schalter</translation>
    </message>
    <message>
        <source>Supply Current Idc</source>
        <translation>Speisestrom Idc</translation>
    </message>
    <message>
        <source>Mean current from the supply</source>
        <translation>Mittlerer Strom aus der Versorgung</translation>
    </message>
    <message>
        <source>Power with Losses</source>
        <translation>Leistung real</translation>
    </message>
    <message>
        <source>Power in R where all parts but the choke have the element Q</source>
        <translation>Leistung in R, wenn alle Teile außer der Drossel die Bauteilgüte haben</translation>
    </message>
    <message>
        <source>Efficiency with Losses</source>
        <translation>Wirkungsgrad real</translation>
    </message>
    <message>
        <source>Power in R over power from the supply, the parts with the element Q</source>
        <translation>Leistung in R zu Leistung aus der Versorgung, Bauteile mit ihrer Güte</translation>
    </message>
    <message>
        <source>Load that the stage needs; match it to your real load with another page</source>
        <translation>Last, die die Stufe braucht; passen Sie sie mit einer anderen Seite an die wirkliche Last an</translation>
    </message>
    <message>
        <source>Supply choke; the other parts allow for its ripple</source>
        <translation>Speisedrossel; die anderen Bauteile berücksichtigen ihre Welligkeit</translation>
    </message>
    <message>
        <source>Across the switch, the transistor&apos;s own output capacitance included</source>
        <translation>Parallel zum Schalter, samt der Ausgangskapazität des Transistors</translation>
    </message>
    <message>
        <source>Series capacitor between switch and load</source>
        <translation>Längskondensator zwischen Schalter und Last</translation>
    </message>
    <message>
        <source>Series inductor between switch and load</source>
        <translation>Längsspule zwischen Schalter und Last</translation>
    </message>
    <message>
        <source>Class-E PA</source>
        <translation>Klasse-E-PA</translation>
    </message>
    <message>
        <source>&amp;Class-E Amplifier</source>
        <translation>Klasse-&amp;E-Endstufe</translation>
    </message>
    <message>
        <source>Complete output network of a class-E stage</source>
        <translation>Vollständiges Ausgangsnetzwerk einer Klasse-E-Endstufe</translation>
    </message>
    <message>
        <source>A switching power stage with efficiency up to 90 %: the switch closes when its voltage is zero. Values after Sokal&apos;s equations with corrections for finite Q.</source>
        <translation>Eine schaltende Endstufe mit bis zu 90 % Wirkungsgrad: Der Schalter schließt, wenn seine Spannung null ist. Werte nach Sokals Gleichungen mit Korrekturen für endliches Q.</translation>
    </message>
    <message>
        <source>Load Q must exceed 1.79; below Q of 3 harmonics rise, above 10 the coil loses. The switch sees 3.6 times the supply. Switch resistance should be below a tenth of R.</source>
        <translation>Die Betriebsgüte muss über 1.79 liegen; unter Q = 3 wachsen die Oberwellen, über 10 die Spulenverluste. Der Schalter sieht das 3.6-Fache der Versorgung. Der Schalterwiderstand sollte unter einem Zehntel von R liegen.</translation>
    </message>
    <message>
        <source>The output capacitance of the transistor is part of C1: subtract it. When C1 comes out smaller than it, this frequency is too high for this transistor at this power.</source>
        <translation>Die Ausgangskapazität des Transistors ist Teil von C1: Ziehen Sie sie ab. Wird C1 kleiner als sie, ist die Frequenz für diesen Transistor bei dieser Leistung zu hoch.</translation>
    </message>
    <message>
        <source>Q of 5 is a good start. Follow with a matching page from R to the antenna.</source>
        <translation>Q = 5 ist ein guter Anfang. Lassen Sie eine Anpassungsseite von R zur Antenne folgen.</translation>
    </message>
    <message>
        <source>50 % duty, switch driven at fo</source>
        <translation>Tastgrad 50 %, gesteuert mit fo</translation>
    </message>
    <message>
        <source>The switch closes at zero voltage and slope</source>
        <translation>Der Schalter schließt bei Spannung und Steigung null</translation>
    </message>
    <message>
        <source>P is that of parts without loss</source>
        <translation>P gilt ohne Verluste</translation>
    </message>
    <message>
        <source>What R takes from fo and all harmonics; the fields below tell what real parts leave</source>
        <translation>Was R von fo und allen Oberwellen aufnimmt; die Felder unten sagen, was wirkliche Bauteile übrig lassen</translation>
    </message>
    <message>
        <source>Infinite choke</source>
        <translation>Unendliche Drossel</translation>
    </message>
    <message>
        <source>The choke carries direct current only, whatever is typed above</source>
        <translation>Die Drossel führt nur Gleichstrom, was auch oben steht</translation>
    </message>
    <message>
        <source>Tap voltages must rise from Vlow1 to Vref!</source>
        <translation>Die Abgriffspannungen müssen von Vlow1 bis Vref steigen!</translation>
    </message>
    <message>
        <source>Tap voltage; the taps rise from Vlow1 to Vref</source>
        <translation>Abgriffspannung; die Abgriffe steigen von Vlow1 bis Vref</translation>
    </message>
    <message>
        <source>Reference Vref</source>
        <translation>Referenz Vref</translation>
    </message>
    <message>
        <source>Voltage at the top of the string</source>
        <translation>Spannung am oberen Ende der Kette</translation>
    </message>
    <message>
        <source>Total Rtot</source>
        <translation>Gesamt Rtot</translation>
    </message>
    <message>
        <source>Resistance of the whole string, RD1 to RD7</source>
        <translation>Widerstand der ganzen Kette, RD1 bis RD7</translation>
    </message>
    <message>
        <source>Band-gap Vbg</source>
        <translation>Bandabstand Vbg</translation>
    </message>
    <message>
        <source>Band-gap voltage across RD8</source>
        <translation>Bandabstandsspannung an RD8</translation>
    </message>
    <message>
        <source>Bias Current Ibg</source>
        <translation>Ruhestrom Ibg</translation>
    </message>
    <message>
        <source>Current that RD8 sets from Vbg</source>
        <translation>Strom, den RD8 aus Vbg einstellt</translation>
    </message>
    <message>
        <source>Resistor RD1</source>
        <translation>Widerstand RD1</translation>
    </message>
    <message>
        <source>Resistor RD2</source>
        <translation>Widerstand RD2</translation>
    </message>
    <message>
        <source>Resistor RD3</source>
        <translation>Widerstand RD3</translation>
    </message>
    <message>
        <source>Resistor RD4</source>
        <translation>Widerstand RD4</translation>
    </message>
    <message>
        <source>Resistor RD5</source>
        <translation>Widerstand RD5</translation>
    </message>
    <message>
        <source>Resistor RD6</source>
        <translation>Widerstand RD6</translation>
    </message>
    <message>
        <source>Resistor RD7</source>
        <translation>Widerstand RD7</translation>
    </message>
    <message>
        <source>Resistor RD8</source>
        <translation>Widerstand RD8</translation>
    </message>
    <message>
        <source>String Current</source>
        <translation>Strom der Kette</translation>
    </message>
    <message>
        <source>Vref over Rtot</source>
        <translation>Vref durch Rtot</translation>
    </message>
    <message>
        <source>From ground to the tap Vlow1</source>
        <translation>Von Masse zum Abgriff Vlow1</translation>
    </message>
    <message>
        <source>From Vlow1 to Vlow2</source>
        <translation>Von Vlow1 nach Vlow2</translation>
    </message>
    <message>
        <source>From Vlow2 to Vmid1</source>
        <translation>Von Vlow2 nach Vmid1</translation>
    </message>
    <message>
        <source>From Vmid1 to Vmid2</source>
        <translation>Von Vmid1 nach Vmid2</translation>
    </message>
    <message>
        <source>From Vmid2 to Vhi1</source>
        <translation>Von Vmid2 nach Vhi1</translation>
    </message>
    <message>
        <source>From Vhi1 to Vhi2</source>
        <translation>Von Vhi1 nach Vhi2</translation>
    </message>
    <message>
        <source>From Vhi2 to Vref</source>
        <translation>Von Vhi2 nach Vref</translation>
    </message>
    <message>
        <source>Turns Vbg into the bias current Ibg; not part of the string</source>
        <translation>Macht aus Vbg den Ruhestrom Ibg; gehört nicht zur Kette</translation>
    </message>
    <message>
        <source>R-Divider</source>
        <translation>R-Teiler</translation>
    </message>
    <message>
        <source>Divides a reference voltage</source>
        <translation>Teilt eine Referenzspannung</translation>
    </message>
    <message>
        <source>A resistor string that makes six reference voltages from one, and the resistor of a bandgap bias. Take rounded values back and let the optimizer bring the taps to their place.</source>
        <translation>Eine Widerstandskette, die aus einer Referenzspannung sechs macht, und der Widerstand einer Bandabstandsreferenz. Übernehmen Sie gerundete Werte und lassen Sie den Optimierer die Abgriffe an ihren Platz bringen.</translation>
    </message>
    <message>
        <source>Taps must not be loaded; their source resistance is up to a quarter of the string.</source>
        <translation>Die Abgriffe dürfen nicht belastet werden; ihr Innenwiderstand beträgt bis zu einem Viertel der Kette.</translation>
    </message>
    <message>
        <source>On chip, end effects of the resistors shift the taps: build all from equal unit resistors.</source>
        <translation>Auf dem Chip verschieben Endeffekte der Widerstände die Abgriffe: Bauen Sie alle aus gleichen Einheitswiderständen.</translation>
    </message>
    <message>
        <source>100 kohm to 1 Mohm on chip, 10 to 100 kohm on boards.</source>
        <translation>100 kOhm bis 1 MOhm auf dem Chip, 10 bis 100 kOhm auf Leiterplatten.</translation>
    </message>
    <message>
        <source>String of seven resistors from ground to Vref with six taps</source>
        <translation>Kette aus sieben Widerständen von Masse nach Vref mit sechs Abgriffen</translation>
    </message>
    <message>
        <source>Round the resistors to standard values, then Take and Optimize</source>
        <translation>Widerstände auf Normwerte runden, dann Übernehmen und optimieren</translation>
    </message>
    <message>
        <source>LC Gamma</source>
        <translation>LC-Gamma</translation>
    </message>
    <message>
        <source>LC &amp;Gamma</source>
        <translation>LC-&amp;Gamma</translation>
    </message>
    <message>
        <source>Two parts only, the fewest possible</source>
        <translation>Nur zwei Bauteile, weniger geht nicht</translation>
    </message>
    <message>
        <source>The L-section: two parts, the least loss of all LC matches, the largest bandwidth for its ratio.</source>
        <translation>Das L-Glied: zwei Bauteile, die kleinsten Verluste aller LC-Anpassungen, die größte Bandbreite für ihr Verhältnis.</translation>
    </message>
    <message>
        <source>Q follows from the ratio of the resistances, so bandwidth cannot be chosen. R1 and R2 must differ.</source>
        <translation>Q folgt aus dem Verhältnis der Widerstände, die Bandbreite ist also nicht wählbar. R1 und R2 müssen verschieden sein.</translation>
    </message>
    <message>
        <source>Capacitances at the high-resistance side belong to C, lead inductance on the low side to L.</source>
        <translation>Kapazitäten auf der hochohmigen Seite gehören zu C, Zuleitungsinduktivität auf der niederohmigen zu L.</translation>
    </message>
    <message>
        <source>For ratios above 10 take two sections (LCCL, Double-L, Broadband).</source>
        <translation>Für Verhältnisse über 10 nehmen Sie zwei Glieder (LCCL, Doppel-L, Breitband).</translation>
    </message>
    <message>
        <source>In series, on the side of the smaller resistance</source>
        <translation>Längs, auf der Seite des kleineren Widerstands</translation>
    </message>
    <message>
        <source>Across the larger resistance</source>
        <translation>Parallel zum größeren Widerstand</translation>
    </message>
    <message>
        <source>LCCL Match</source>
        <translation>LCCL-Anpassung</translation>
    </message>
    <message>
        <source>Low-pass and high-pass L-section whose phase shifts cancel</source>
        <translation>Tiefpass- und Hochpass-L-Glied, deren Phasendrehungen sich aufheben</translation>
    </message>
    <message>
        <source>Low-pass L followed by high-pass L: steps R1 up to R2 with a band-pass character and almost no phase shift; blocks direct current.</source>
        <translation>Tiefpass-L, gefolgt von Hochpass-L: transformiert R1 hinauf auf R2, mit Bandpassverhalten und fast ohne Phasendrehung; sperrt Gleichstrom.</translation>
    </message>
    <message>
        <source>R2 must be larger than R1. Four parts, so four tolerances.</source>
        <translation>R2 muss größer als R1 sein. Vier Bauteile, also vier Toleranzen.</translation>
    </message>
    <message>
        <source>Pads at the middle node add to C1, at the load they detune L2.</source>
        <translation>Lötflächen am mittleren Knoten gehören zu C1, an der Last verstimmen sie L2.</translation>
    </message>
    <message>
        <source>Halves of about equal size: the optimizer keeps L1 and L2, C1 and C2 alike.</source>
        <translation>Etwa gleich große Hälften: Der Optimierer hält L1 und L2 sowie C1 und C2 ähnlich.</translation>
    </message>
    <message>
        <source>Suited for R1&lt;R2, almost no phase shift at fo</source>
        <translation>Geeignet für R1&lt;R2, fast keine Phasendrehung bei fo</translation>
    </message>
    <message>
        <source>The phase shifts of the low-pass and the high-pass half cancel</source>
        <translation>Die Phasendrehungen der Tiefpass- und der Hochpasshälfte heben sich auf</translation>
    </message>
    <message>
        <source>Double-L Section</source>
        <translation>Doppel-L-Glied</translation>
    </message>
    <message>
        <source>Two high-pass L-sections, wider than a single one</source>
        <translation>Zwei Hochpass-L-Glieder, breiter als ein einzelnes</translation>
    </message>
    <message>
        <source>Two high-pass L-sections: steps R1 down to R2 with half the Q of a single section, so about twice the bandwidth; blocks direct current, and the first coil can feed a collector.</source>
        <translation>Zwei Hochpass-L-Glieder: transformieren R1 hinunter auf R2 mit dem halben Q eines einzelnen Glieds, also etwa der doppelten Bandbreite; sperren Gleichstrom, und die erste Spule kann einen Kollektor speisen.</translation>
    </message>
    <message>
        <source>R1 must be larger than R2. Harmonics pass.</source>
        <translation>R1 muss größer als R2 sein. Oberwellen gehen durch.</translation>
    </message>
    <message>
        <source>The transistor&apos;s output capacitance detunes L1: make L1 smaller. Pads at the middle node detune L2 likewise.</source>
        <translation>Die Ausgangskapazität des Transistors verstimmt L1: Machen Sie L1 kleiner. Ebenso verstimmen Lötflächen am mittleren Knoten L2.</translation>
    </message>
    <message>
        <source>Good for ratios of 4 to 100.</source>
        <translation>Gut für Verhältnisse von 4 bis 100.</translation>
    </message>
    <message>
        <source>Suited for R1&gt;R2, blocks DC and low frequencies</source>
        <translation>Geeignet für R1&gt;R2, sperrt Gleichstrom und tiefe Frequenzen</translation>
    </message>
    <message>
        <source>Two high-pass sections through the geometric mean of R1 and R2</source>
        <translation>Zwei Hochpassglieder über das geometrische Mittel von R1 und R2</translation>
    </message>
    <message>
        <source>LC Series Tank</source>
        <translation>LC-Serienkreis</translation>
    </message>
    <message>
        <source>&amp;LC Series Tank</source>
        <translation>&amp;LC-Serienkreis</translation>
    </message>
    <message>
        <source>Tapped series tank whose Q can be chosen</source>
        <translation>Angezapfter Serienkreis mit wählbarem Q</translation>
    </message>
    <message>
        <source>Steps a small source resistance up to a larger load with a free choice of the loaded Q. The series coil and C1 form the tank, C2 taps the load into it. It blocks direct current and falls off on both sides of fo.</source>
        <translation>Transformiert einen kleinen Quellwiderstand auf eine größere Last bei frei wählbarer Betriebsgüte. Längsspule und C1 bilden den Kreis, C2 zapft die Last an. Er sperrt Gleichstrom und fällt beiderseits von fo ab.</translation>
    </message>
    <message>
        <source>R1 must be smaller than R2. Below Q of about sqrt(R2/R1 − 1)/2 the reactance of C1 changes its sign; the value shown is then only a magnitude. At high Q the whole current runs through L: its loss is about Q/QL.</source>
        <translation>R1 muss kleiner als R2 sein. Unter Q von etwa sqrt(R2/R1 − 1)/2 wechselt der Blindwiderstand von C1 das Vorzeichen; der gezeigte Wert ist dann nur ein Betrag. Bei hohem Q fließt der ganze Strom durch L: Seine Verluste sind etwa Q/QL.</translation>
    </message>
    <message>
        <source>The pad capacitance at the load and the input capacitance of the next stage belong to C2: subtract them. The self-capacitance of L raises its effective value; the Leff/Ceff page tells by how much. The lead inductance of C1 simply adds to L.</source>
        <translation>Die Kapazität der Lötfläche an der Last und die Eingangskapazität der nächsten Stufe gehören zu C2: Ziehen Sie sie ab. Die Eigenkapazität von L erhöht dessen wirksamen Wert; um wie viel, sagt die Seite Leff/Ceff. Die Zuleitungsinduktivität von C1 kommt einfach zu L hinzu.</translation>
    </message>
    <message>
        <source>Choose Q so that L stays below a third of the inductance that resonates with its own capacitance at fo, and C1 stays above a few times the stray capacitance (about 0.3 pF).</source>
        <translation>Wählen Sie Q so, dass L unter einem Drittel der Induktivität bleibt, die bei fo mit der Eigenkapazität in Resonanz ist, und C1 über dem Mehrfachen der Streukapazität (etwa 0.3 pF).</translation>
    </message>
    <message>
        <source>Suited for R1&lt;R2</source>
        <translation>Geeignet für R1&lt;R2</translation>
    </message>
    <message>
        <source>LC Parallel Tank</source>
        <translation>LC-Parallelkreis</translation>
    </message>
    <message>
        <source>LC &amp;Parallel Tank</source>
        <translation>LC-&amp;Parallelkreis</translation>
    </message>
    <message>
        <source>Tapped parallel tank whose Q can be chosen</source>
        <translation>Angezapfter Parallelkreis mit wählbarem Q</translation>
    </message>
    <message>
        <source>Steps a large source resistance down to a smaller load. L grounds the source side, so a supply can be fed through its cold end; C1 and C2 form a capacitive tap.</source>
        <translation>Transformiert einen großen Quellwiderstand hinunter auf eine kleinere Last. L legt die Quellseite an Masse, so dass über sein kaltes Ende gespeist werden kann; C1 und C2 bilden eine kapazitive Anzapfung.</translation>
    </message>
    <message>
        <source>R1 must be larger than R2. Large ratios at high Q give a very small C1 and a large circulating current in L.</source>
        <translation>R1 muss größer als R2 sein. Große Verhältnisse bei hohem Q ergeben ein sehr kleines C1 und einen großen Kreisstrom in L.</translation>
    </message>
    <message>
        <source>The output capacitance of the driving transistor lies across L: make L a little larger or trim C1. Pads at the load add to C2. The ground lead of C2 is common to input and output; keep it short.</source>
        <translation>Die Ausgangskapazität des treibenden Transistors liegt parallel zu L: Machen Sie L etwas größer oder gleichen Sie C1 ab. Lötflächen an der Last gehören zu C2. Die Masseleitung von C2 ist Eingang und Ausgang gemeinsam; halten Sie sie kurz.</translation>
    </message>
    <message>
        <source>Typical: Q 3 to 15. For L below about 2 nH think of a line instead of a coil.</source>
        <translation>Üblich: Q von 3 bis 15. Für L unter etwa 2 nH denken Sie an eine Leitung statt einer Spule.</translation>
    </message>
    <message>
        <source>Suited for R1&gt;R2</source>
        <translation>Geeignet für R1&gt;R2</translation>
    </message>
    <message>
        <source>TRL</source>
        <translation>TRL</translation>
    </message>
    <message>
        <source>&amp;TRL</source>
        <translation>&amp;TRL</translation>
    </message>
    <message>
        <source>Quarter-wave line without any lumped part</source>
        <translation>Viertelwellenleitung ohne konzentrierte Bauteile</translation>
    </message>
    <message>
        <source>A quarter-wave line of ZL = sqrt(R1·R2): simple, no tuning, little loss at high frequencies.</source>
        <translation>Eine Viertelwellenleitung mit ZL = sqrt(R1·R2): einfach, kein Abgleich, kleine Verluste bei hohen Frequenzen.</translation>
    </message>
    <message>
        <source>The Q, and so the bandwidth, follows from the ratio R1/R2. It passes direct current and repeats at every odd multiple of fo. Below about 100 MHz the line is long.</source>
        <translation>Q und damit die Bandbreite folgen aus dem Verhältnis R1/R2. Sie lässt Gleichstrom durch und wirkt bei jedem ungeraden Vielfachen von fo wieder. Unter etwa 100 MHz wird die Leitung lang.</translation>
    </message>
    <message>
        <source>Pad capacitances make the line look longer; shorten it a little. An open end adds about half the substrate&apos;s height in length.</source>
        <translation>Kapazitäten der Lötflächen lassen die Leitung länger wirken; kürzen Sie sie etwas. Ein offenes Ende verlängert um etwa die halbe Substratdicke.</translation>
    </message>
    <message>
        <source>Microstrip can be made from about 20 to 120 ohm. The Tools menu calculates its width.</source>
        <translation>Mikrostreifenleitungen gibt es von etwa 20 bis 120 Ohm. Das Menü Werkzeuge berechnet ihre Breite.</translation>
    </message>
    <message>
        <source>Dielectric Constant εr</source>
        <translation>Dielektrizitätszahl εr</translation>
    </message>
    <message>
        <source>Relative permittivity of the line&apos;s dielectric, 1 to 100</source>
        <translation>Relative Permittivität des Dielektrikums der Leitung, 1 bis 100</translation>
    </message>
    <message>
        <source>Charact. Impedance ZL</source>
        <translation>Wellenwiderstand ZL</translation>
    </message>
    <message>
        <source>Normalized Length l/λ</source>
        <translation>Normierte Länge l/λ</translation>
    </message>
    <message>
        <source>Length in wavelengths on the line</source>
        <translation>Länge in Wellenlängen auf der Leitung</translation>
    </message>
    <message>
        <source>Geometrical Length l</source>
        <translation>Geometrische Länge l</translation>
    </message>
    <message>
        <source>Length to cut, shortened by the dielectric</source>
        <translation>Zuzuschneidende Länge, durch das Dielektrikum verkürzt</translation>
    </message>
    <message>
        <source>above self-resonance</source>
        <translation>oberhalb der Eigenresonanz</translation>
    </message>
    <message>
        <source>Coil</source>
        <translation>Spule</translation>
    </message>
    <message>
        <source>Capacitor</source>
        <translation>Kondensator</translation>
    </message>
    <message>
        <source>Equivalent Inductance</source>
        <translation>Ersatzinduktivität</translation>
    </message>
    <message>
        <source>Equivalent Capacitance</source>
        <translation>Ersatzkapazität</translation>
    </message>
    <message>
        <source>It must be fs&gt;fp!</source>
        <translation>Es muss fs&gt;fp sein!</translation>
    </message>
    <message>
        <source>Inductance Ls</source>
        <translation>Induktivität Ls</translation>
    </message>
    <message>
        <source>In series with Cs</source>
        <translation>In Reihe mit Cs</translation>
    </message>
    <message>
        <source>Capacitance Cs</source>
        <translation>Kapazität Cs</translation>
    </message>
    <message>
        <source>In series with Ls</source>
        <translation>In Reihe mit Ls</translation>
    </message>
    <message>
        <source>Inductance Lp</source>
        <translation>Induktivität Lp</translation>
    </message>
    <message>
        <source>Across the branch of Ls and Cs</source>
        <translation>Parallel zum Zweig aus Ls und Cs</translation>
    </message>
    <message>
        <source>Wanted fp (open)</source>
        <translation>Gewünschtes fp (offen)</translation>
    </message>
    <message>
        <source>Frequency that the tank shall let pass; for the button below</source>
        <translation>Frequenz, die der Kreis durchlassen soll; für den Knopf unten</translation>
    </message>
    <message>
        <source>Wanted fs (short)</source>
        <translation>Gewünschtes fs (kurz)</translation>
    </message>
    <message>
        <source>Frequency that the tank shall short, above fp; for the button below</source>
        <translation>Frequenz über fp, die der Kreis kurzschließen soll; für den Knopf unten</translation>
    </message>
    <message>
        <source>Leff/Ceff</source>
        <translation>Leff/Ceff</translation>
    </message>
    <message>
        <source>L&amp;eff/Ceff</source>
        <translation>L&amp;eff/Ceff</translation>
    </message>
    <message>
        <source>Looks at the parasitics of one coil or capacitor</source>
        <translation>Zeigt die parasitären Größen einer Spule oder eines Kondensators</translation>
    </message>
    <message>
        <source>What a coil or capacitor really is at fo: near its self-resonance the effective value rises, above it a coil is a capacitor and a capacitor a coil.</source>
        <translation>Was eine Spule oder ein Kondensator bei fo wirklich ist: Nahe der Eigenresonanz steigt der wirksame Wert, darüber ist eine Spule ein Kondensator und ein Kondensator eine Spule.</translation>
    </message>
    <message>
        <source>One resonance only; long coils have more of them. The loss resistance is taken as constant; skin effect makes it rise with the root of the frequency.</source>
        <translation>Nur eine Resonanz; lange Spulen haben mehr davon. Der Verlustwiderstand gilt als konstant; der Skineffekt lässt ihn mit der Wurzel der Frequenz steigen.</translation>
    </message>
    <message>
        <source>Measure L and R at a low frequency, the self-resonance with a network analyser, and compute C from it.</source>
        <translation>Messen Sie L und R bei niedriger Frequenz, die Eigenresonanz mit einem Netzwerkanalysator, und berechnen Sie C daraus.</translation>
    </message>
    <message>
        <source>Chip coils: 0.1 to 0.2 pF; chip capacitors: 0.5 to 1 nH; wired parts: 1 nH per millimetre.</source>
        <translation>Chipspulen: 0.1 bis 0.2 pF; Chipkondensatoren: 0.5 bis 1 nH; bedrahtete Teile: 1 nH je Millimeter.</translation>
    </message>
    <message>
        <source>A real coil or capacitor, as it acts at fo</source>
        <translation>Wirkliche Spule oder Kondensator bei fo</translation>
    </message>
    <message>
        <source>Set fo above</source>
        <translation>fo wird oben eingestellt</translation>
    </message>
    <message>
        <source>A coil acts as capacitance there, a capacitor as inductance</source>
        <translation>Dort wirkt eine Spule als Kapazität, ein Kondensator als Induktivität</translation>
    </message>
    <message>
        <source>Coil: its inductance. Capacitor: that of its leads</source>
        <translation>Spule: ihre Induktivität. Kondensator: die seiner Zuleitungen</translation>
    </message>
    <message>
        <source>Capacitor: its capacitance. Coil: that of its winding</source>
        <translation>Kondensator: seine Kapazität. Spule: die ihrer Wicklung</translation>
    </message>
    <message>
        <source>Loss Resistance R</source>
        <translation>Verlustwiderstand R</translation>
    </message>
    <message>
        <source>Series resistance at fo</source>
        <translation>Serienwiderstand bei fo</translation>
    </message>
    <message>
        <source>Self-Resonance f0</source>
        <translation>Eigenresonanz f0</translation>
    </message>
    <message>
        <source>Resonance of L and C</source>
        <translation>Resonanz von L und C</translation>
    </message>
    <message>
        <source>Coil: Leff</source>
        <translation>Spule: Leff</translation>
    </message>
    <message>
        <source>Inductance of the coil at fo, its capacitance included</source>
        <translation>Induktivität der Spule bei fo, samt ihrer Kapazität</translation>
    </message>
    <message>
        <source>Coil: Q</source>
        <translation>Spule: Q</translation>
    </message>
    <message>
        <source>Reactance over resistance at fo</source>
        <translation>Blindwiderstand zu Wirkwiderstand bei fo</translation>
    </message>
    <message>
        <source>Capacitor: Ceff</source>
        <translation>Kondensator: Ceff</translation>
    </message>
    <message>
        <source>Capacitance of the capacitor at fo, its inductance included</source>
        <translation>Kapazität des Kondensators bei fo, samt seiner Induktivität</translation>
    </message>
    <message>
        <source>Capacitor: Q</source>
        <translation>Kondensator: Q</translation>
    </message>
    <message>
        <source>Comb. LC</source>
        <translation>Komb. LC</translation>
    </message>
    <message>
        <source>Comb. LC Tank</source>
        <translation>Komb. LC-Kreis</translation>
    </message>
    <message>
        <source>Designs a trap for one frequency</source>
        <translation>Entwirft eine Falle für eine Frequenz</translation>
    </message>
    <message>
        <source>A tank that is open at one frequency and short at another: passes the carrier and traps a harmonic, with three parts.</source>
        <translation>Ein Kreis, der bei einer Frequenz offen ist und bei einer anderen kurzschließt: lässt den Träger durch und fängt eine Oberwelle, mit drei Bauteilen.</translation>
    </message>
    <message>
        <source>The short lies above the open frequency. Sharp traps need coils of high Q; their depth is about the loss resistance of Ls and Cs.</source>
        <translation>Der Kurzschluss liegt über der offenen Frequenz. Schmale Fallen brauchen Spulen hoher Güte; ihre Tiefe ist etwa der Verlustwiderstand von Ls und Cs.</translation>
    </message>
    <message>
        <source>Stray capacitance across the whole tank lowers the open frequency; trim Lp.</source>
        <translation>Streukapazität über dem ganzen Kreis senkt die offene Frequenz; gleichen Sie Lp ab.</translation>
    </message>
    <message>
        <source>For a trap at 2·fo: Lp = 3·Ls for any Ls. The button solves the general case.</source>
        <translation>Für eine Falle bei 2·fo: Lp = 3·Ls für jedes Ls. Der Knopf löst den allgemeinen Fall.</translation>
    </message>
    <message>
        <source>open at fp, short at fs: a harmonic trap</source>
        <translation>offen bei fp, kurz bei fs: eine Oberwellenfalle</translation>
    </message>
    <message>
        <source>Across a line it passes fp and shorts fs</source>
        <translation>Parallel zu einer Leitung lässt er fp durch und schließt fs kurz</translation>
    </message>
    <message>
        <source>Find Cs, Lp for Ls</source>
        <translation>Cs, Lp zu Ls finden</translation>
    </message>
    <message>
        <source>Make the tank open at fp and short at fs, keeping Ls</source>
        <translation>Macht den Kreis bei fp offen und bei fs kurz und behält Ls bei</translation>
    </message>
    <message>
        <source>Series Resonance fs</source>
        <translation>Serienresonanz fs</translation>
    </message>
    <message>
        <source>The tank is a short here</source>
        <translation>Hier ist der Kreis ein Kurzschluss</translation>
    </message>
    <message>
        <source>Parallel Resonance fp</source>
        <translation>Parallelresonanz fp</translation>
    </message>
    <message>
        <source>The tank is open here</source>
        <translation>Hier ist der Kreis offen</translation>
    </message>
    <message>
        <source>Reactance at fo</source>
        <translation>Blindwiderstand bei fo</translation>
    </message>
    <message>
        <source>Positive: inductive</source>
        <translation>Positiv: induktiv</translation>
    </message>
    <message>
        <source>Single element of the same reactance at fo</source>
        <translation>Einzelnes Element mit demselben Blindwiderstand bei fo</translation>
    </message>
    <message>
        <source>Pi Section</source>
        <translation>Pi-Glied</translation>
    </message>
    <message>
        <source>&amp;Pi Section</source>
        <translation>&amp;Pi-Glied</translation>
    </message>
    <message>
        <source>Pi section whose Q can be chosen, absorbs shunt parasitics of both ends</source>
        <translation>Pi-Glied mit wählbarem Q, nimmt Querkapazitäten beider Seiten auf</translation>
    </message>
    <message>
        <source>The universal match: any R1 to any R2 with a chosen Q, and a low-pass that suppresses harmonics. Both ends start with a capacitor across, so it swallows the capacitances of the stages on both sides and cascades well.</source>
        <translation>Die universelle Anpassung: jedes R1 an jedes R2 mit wählbarem Q, und ein Tiefpass, der Oberwellen unterdrückt. Beide Enden beginnen mit einem Querkondensator; so nimmt es die Kapazitäten der Stufen beiderseits auf und lässt sich gut in Kette schalten.</translation>
    </message>
    <message>
        <source>The intermediate resistance in the middle is lower than R1 and R2; with high Q the current in L grows and with it the loss, about 2·Q/QL. Direct current passes.</source>
        <translation>Der Zwischenwiderstand in der Mitte ist kleiner als R1 und R2; bei hohem Q wächst der Strom in L und mit ihm der Verlust, etwa 2·Q/QL. Gleichstrom geht durch.</translation>
    </message>
    <message>
        <source>Transistor and pad capacitances belong to C1 and C2: subtract them. The capacitance from one end of the coil to the other gives a notch above fo, that to ground adds to both capacitors.</source>
        <translation>Kapazitäten von Transistor und Lötflächen gehören zu C1 und C2: Ziehen Sie sie ab. Die Kapazität von einem Ende der Spule zum anderen gibt eine Nullstelle über fo, die nach Masse kommt zu beiden Kondensatoren hinzu.</translation>
    </message>
    <message>
        <source>Keep L above 1 nH and the capacitors well above the strays. Q 2 to 10 is comfortable.</source>
        <translation>Halten Sie L über 1 nH und die Kondensatoren deutlich über den Streukapazitäten. Q von 2 bis 10 ist bequem.</translation>
    </message>
    <message>
        <source>universal, good for cascades</source>
        <translation>universell, gut für Kettenschaltungen</translation>
    </message>
    <message>
        <source>R measured from the center</source>
        <translation>R von der Mitte aus gemessen</translation>
    </message>
    <message>
        <source>T Section</source>
        <translation>T-Glied</translation>
    </message>
    <message>
        <source>&amp;T Section</source>
        <translation>&amp;T-Glied</translation>
    </message>
    <message>
        <source>T section whose Q can be chosen, absorbs series parasitics of both ends</source>
        <translation>T-Glied mit wählbarem Q, nimmt Längsinduktivitäten beider Seiten auf</translation>
    </message>
    <message>
        <source>Two coils and a capacitor across: suits low impedances, where a Pi section would need very large capacitors. Lead inductances at both ends become part of the network.</source>
        <translation>Zwei Spulen und ein Querkondensator: passt für niedrige Impedanzen, bei denen ein Pi-Glied sehr große Kondensatoren bräuchte. Zuleitungsinduktivitäten beider Enden werden Teil des Netzwerks.</translation>
    </message>
    <message>
        <source>R1 and R2 must differ. The capacitor does not depend on Q; only the coils do. High Q needs large coils, whose self-resonance must lie well above fo.</source>
        <translation>R1 und R2 müssen verschieden sein. Der Kondensator hängt nicht von Q ab, nur die Spulen. Hohes Q braucht große Spulen, deren Eigenresonanz weit über fo liegen muss.</translation>
    </message>
    <message>
        <source>Bond wires and package leads belong to L1 and L2. The inductance of the capacitor&apos;s ground path makes a notch above fo; two capacitors in parallel halve it.</source>
        <translation>Bonddrähte und Gehäuseanschlüsse gehören zu L1 und L2. Die Induktivität des Massewegs des Kondensators gibt eine Nullstelle über fo; zwei parallele Kondensatoren halbieren sie.</translation>
    </message>
    <message>
        <source>Good for R of 1 to 50 ohm. Start with Q of 1 to 5 and let the optimizer refine.</source>
        <translation>Gut für R von 1 bis 50 Ohm. Beginnen Sie mit Q von 1 bis 5 und lassen Sie den Optimierer verfeinern.</translation>
    </message>
    <message>
        <source>Bandwidth often smaller when forcing equal values</source>
        <translation>Bandbreite oft kleiner, wenn gleiche Werte erzwungen werden</translation>
    </message>
    <message>
        <source>Min. L</source>
        <translation>Kleines L</translation>
    </message>
    <message>
        <source>Try to keep sum of L small during optimization</source>
        <translation>Versucht, die Summe der L beim Optimieren klein zu halten</translation>
    </message>
    <message>
        <source>Start from a negligible capacitance C1</source>
        <translation>Mit einer vernachlässigbaren Kapazität C1 beginnen</translation>
    </message>
    <message>
        <source>Transformer</source>
        <translation>Übertrager</translation>
    </message>
    <message>
        <source>&amp;Transformer</source>
        <translation>&amp;Übertrager</translation>
    </message>
    <message>
        <source>Two coupled tanks that isolate source and load from each other</source>
        <translation>Zwei gekoppelte Kreise, die Quelle und Last voneinander trennen</translation>
    </message>
    <message>
        <source>Matches with two coupled coils: galvanic isolation, wide choice of ratios, and the leakage inductance is part of the design. The optimizer finds coils and capacitors for the coupling coefficient that you can really make.</source>
        <translation>Passt mit zwei gekoppelten Spulen an: galvanische Trennung, große Auswahl an Verhältnissen, und die Streuinduktivität gehört zum Entwurf. Der Optimierer findet Spulen und Kondensatoren zu dem Koppelfaktor, den Sie wirklich herstellen können.</translation>
    </message>
    <message>
        <source>The closed form does not know k; without optimization the values are a start only. Little coupling (k below 0.3) gives small bandwidth and more loss.</source>
        <translation>Die geschlossene Formel kennt k nicht; ohne Optimierung sind die Werte nur ein Anfang. Geringe Kopplung (k unter 0.3) gibt kleine Bandbreite und mehr Verluste.</translation>
    </message>
    <message>
        <source>Winding capacitances belong to C1 and C2. The capacitance between the windings is not in the model: keep it small or put the cold ends together.</source>
        <translation>Wicklungskapazitäten gehören zu C1 und C2. Die Kapazität zwischen den Wicklungen ist nicht im Modell: Halten Sie sie klein oder legen Sie die kalten Enden zusammen.</translation>
    </message>
    <message>
        <source>k of planar transformers on chip: 0.6 to 0.85; of toroids: 0.9 to 0.99; of two air coils side by side: 0.1 to 0.4.</source>
        <translation>k von planaren Übertragern auf dem Chip: 0.6 bis 0.85; von Ringkernen: 0.9 bis 0.99; von zwei Luftspulen nebeneinander: 0.1 bis 0.4.</translation>
    </message>
    <message>
        <source>Coupling Coefficient k</source>
        <translation>Koppelfaktor k</translation>
    </message>
    <message>
        <source>Coupling of the two coils, 0.1 to 1</source>
        <translation>Kopplung der beiden Spulen, 0.1 bis 1</translation>
    </message>
    <message>
        <source>It must be R2&gt;R1! Switch resistances by clicking the button!</source>
        <translation>Es muss R2&gt;R1 sein! Vertauschen Sie die Widerstände mit dem Knopf!</translation>
    </message>
    <message>
        <source>It must be R1&gt;R2! Switch resistances by clicking the button!</source>
        <translation>Es muss R1&gt;R2 sein! Vertauschen Sie die Widerstände mit dem Knopf!</translation>
    </message>
    <message>
        <source>It must be R2&lt;R1! Switch resistances by clicking the button!</source>
        <translation>Es muss R2&lt;R1 sein! Vertauschen Sie die Widerstände mit dem Knopf!</translation>
    </message>
    <message>
        <source>R2 must be different from R1! Otherwise no additional matching needed.</source>
        <translation>R2 muss von R1 verschieden sein! Sonst ist keine Anpassung nötig.</translation>
    </message>
    <message>
        <source>It must be Ub&gt;Usat!</source>
        <translation>Es muss Ub&gt;Usat sein!</translation>
    </message>
    <message>
        <source>Q-factor is not adjustable, depends on R ratio</source>
        <translation>Q ist nicht wählbar, folgt aus dem R-Verhältnis</translation>
    </message>
    <message>
        <source>depends on ratio R1/R2</source>
        <translation>folgt aus dem Verhältnis R1/R2</translation>
    </message>
    <message>
        <source>for transfer function, not always realizable (esp. for very high or low Q)</source>
        <translation>für die Übertragungsfunktion, nicht immer realisierbar (besonders bei sehr hohem oder niedrigem Q)</translation>
    </message>
    <message>
        <source>Resistance R1</source>
        <translation>Widerstand R1</translation>
    </message>
    <message>
        <source>Resistance of the source</source>
        <translation>Widerstand der Quelle</translation>
    </message>
    <message>
        <source>Resistance R2</source>
        <translation>Widerstand R2</translation>
    </message>
    <message>
        <source>Resistance of the load</source>
        <translation>Widerstand der Last</translation>
    </message>
    <message>
        <source>Frequency fo</source>
        <translation>Frequenz fo</translation>
    </message>
    <message>
        <source>Centre frequency of the match</source>
        <translation>Mittenfrequenz der Anpassung</translation>
    </message>
    <message>
        <source>Element Q</source>
        <translation>Bauteilgüte Q</translation>
    </message>
    <message>
        <source>Q of the inductors</source>
        <translation>Güte der Spulen</translation>
    </message>
    <message>
        <source>Q of the capacitors</source>
        <translation>Güte der Kondensatoren</translation>
    </message>
    <message>
        <source>Inductance %1</source>
        <translation>Induktivität %1</translation>
    </message>
    <message>
        <source>Capacitance %1</source>
        <translation>Kapazität %1</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>%1 has no data</source>
        <translation>%1 hat keine Daten</translation>
    </message>
    <message>
        <source>%1 covers %2 to %3, not %4</source>
        <translation>%1 reicht von %2 bis %3, nicht %4</translation>
    </message>
    <message>
        <source>%1: neighbouring samples turn by up to %2°, too coarse to be read between them (30° at most)</source>
        <translation>%1: Benachbarte Stützstellen drehen um bis zu %2°, zu grob, um dazwischen zu lesen (höchstens 30°)</translation>
    </message>
    <message>
        <source>%1: |Γ| of 1 or more at port %2 at %3, which no passive device has</source>
        <translation>%1: |Γ| von 1 oder mehr an Tor %2 bei %3, was kein passives Bauteil hat</translation>
    </message>
    <message>
        <source>%1: |Γ| of 1 or more at %2, which no passive device has</source>
        <translation>%1: |Γ| von 1 oder mehr bei %2, was kein passives Bauteil hat</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weiteren</translation>
    </message>
    <message>
        <source>expected series:, shunt:, line:, open:, short:, transformer:, coupled:, part: or another kind of element</source>
        <translation>erwartet: series:, shunt:, line:, open:, short:, transformer:, coupled:, part: oder eine andere Art von Element</translation>
    </message>
    <message>
        <source>%1:&apos; is no kind of element: expected series:, shunt:, line:, open:, short:, transformer:, coupled: or part:</source>
        <translation>%1:&apos; ist keine Art von Element; erwartet: series:, shunt:, line:, open:, short:, transformer:, coupled: oder part:</translation>
    </message>
    <message>
        <source>a line needs Z=</source>
        <translation>eine Leitung braucht Z=</translation>
    </message>
    <message>
        <source>%1= is a number from 0 up</source>
        <translation>%1= ist eine Zahl ab 0</translation>
    </message>
    <message>
        <source>the length of a line is deg=90@1G or len=31m</source>
        <translation>die Länge einer Leitung ist deg=90@1G oder len=31m</translation>
    </message>
    <message>
        <source>a length cannot be negative</source>
        <translation>eine Länge kann nicht negativ sein</translation>
    </message>
    <message>
        <source>n= has to be other than 0</source>
        <translation>n= darf nicht 0 sein</translation>
    </message>
    <message>
        <source>coupled coils need L1=, L2= and k=</source>
        <translation>gekoppelte Spulen brauchen L1=, L2= und k=</translation>
    </message>
    <message>
        <source>coupled coils have to be above 0 H</source>
        <translation>gekoppelte Spulen müssen über 0 H liegen</translation>
    </message>
    <message>
        <source>k= has to be above 0 and up to 1</source>
        <translation>k= muss über 0 liegen und höchstens 1 sein</translation>
    </message>
    <message>
        <source>a file (.s2p, or in quotes)</source>
        <translation>eine Datei (.s2p oder in Anführungszeichen)</translation>
    </message>
    <message>
        <source>these data have one port, a part needs two</source>
        <translation>diese Daten haben ein Tor, ein Bauteil braucht zwei</translation>
    </message>
    <message>
        <source>%1&apos; is no impedance: expected a number, R=, L=, C= or a file (.s1p, .s2p, or in quotes)</source>
        <translation>%1&apos; ist keine Impedanz; erwartet: eine Zahl, R=, L=, C= oder eine Datei (.s1p, .s2p oder in Anführungszeichen)</translation>
    </message>
    <message>
        <source>%1=&apos; is no part: expected R=, L= or C=</source>
        <translation>%1=&apos; ist kein Bauteil; erwartet: R=, L= oder C=</translation>
    </message>
    <message>
        <source>a resistor has no Q, ESR or SRF</source>
        <translation>ein Widerstand hat weder Q noch ESR oder SRF</translation>
    </message>
    <message>
        <source>law= needs Q=</source>
        <translation>law= braucht Q=</translation>
    </message>
    <message>
        <source>expected law=constant, f, root, page or mirrored</source>
        <translation>erwartet: law=constant, f, root, page oder mirrored</translation>
    </message>
    <message>
        <source>this law needs the frequency of Q: Q=40@100M</source>
        <translation>dieses Gesetz braucht die Frequenz zu Q: Q=40@100M</translation>
    </message>
    <message>
        <source>%1= stands here twice</source>
        <translation>%1= steht hier zweimal</translation>
    </message>
    <message>
        <source>&apos;+&apos;, &apos;|&apos; or &apos;)&apos;</source>
        <translation>&apos;+&apos;, &apos;|&apos; oder &apos;)&apos;</translation>
    </message>
    <message>
        <source>&apos;+&apos;, &apos;|&apos; or the end</source>
        <translation>&apos;+&apos;, &apos;|&apos; oder das Ende</translation>
    </message>
    <message>
        <source>&apos;,&apos; or the end</source>
        <translation>&apos;,&apos; oder das Ende</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>eines von %1</translation>
    </message>
    <message>
        <source>expected a frequency above 0</source>
        <translation>erwartet: eine Frequenz über 0</translation>
    </message>
    <message>
        <source>%1= needs its frequency: %2</source>
        <translation>%1= braucht seine Frequenz: %2</translation>
    </message>
    <message>
        <source>a name</source>
        <translation>ein Name</translation>
    </message>
    <message>
        <source>only an imaginary and a real number are subtracted: expected &apos;+&apos;, &apos;|&apos; or the end</source>
        <translation>nur eine imaginäre und eine reelle Zahl werden subtrahiert; erwartet: &apos;+&apos;, &apos;|&apos; oder das Ende</translation>
    </message>
    <message>
        <source>measured data cannot be used here</source>
        <translation>Messdaten sind hier nicht verwendbar</translation>
    </message>
    <message>
        <source>there are no data of this name</source>
        <translation>unter diesem Namen gibt es keine Daten</translation>
    </message>
    <message>
        <source>expected port 1 or 2</source>
        <translation>erwartet: Tor 1 oder 2</translation>
    </message>
    <message>
        <source>these data have one port</source>
        <translation>diese Daten haben ein Tor</translation>
    </message>
    <message>
        <source>these data have two ports: write %1 or %2</source>
        <translation>diese Daten haben zwei Tore: Schreiben Sie %1 oder %2</translation>
    </message>
    <message>
        <source>tol= is in percent, above 0 and below 100</source>
        <translation>tol= ist in Prozent, über 0 und unter 100</translation>
    </message>
    <message>
        <source>%1= has to be above 0</source>
        <translation>%1= muss über 0 liegen</translation>
    </message>
    <message>
        <source>column %1: %2</source>
        <translation>Spalte %1: %2</translation>
    </message>
    <message>
        <source>expected %1</source>
        <translation>erwartet: %1</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>erwartet: %1, gefunden: %2</translation>
    </message>
    <message>
        <source>expected %1, the text ends</source>
        <translation>erwartet: %1, der Text endet</translation>
    </message>
    <message>
        <source>no character</source>
        <translation>kein Zeichen</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>the end of the number</source>
        <translation>das Ende der Zahl</translation>
    </message>
    <message>
        <source>this quote is not closed</source>
        <translation>dieses Anführungszeichen wird nicht geschlossen</translation>
    </message>
    <message>
        <source>this number is too large</source>
        <translation>diese Zahl ist zu groß</translation>
    </message>
    <message>
        <source>the text is too long</source>
        <translation>der Text ist zu lang</translation>
    </message>
    <message>
        <source>nested too deeply</source>
        <translation>zu tief verschachtelt</translation>
    </message>
    <message>
        <source>Q must be larger than 1.79!</source>
        <translation>Q muss größer als 1.79 sein!</translation>
    </message>
    <message>
        <source>Power, frequency and choke must be positive!</source>
        <translation>Leistung, Frequenz und Drossel müssen positiv sein!</translation>
    </message>
    <message>
        <source>No class-E stage was found for this Q and choke!</source>
        <translation>Für dieses Q und diese Drossel fand sich keine Klasse-E-Endstufe!</translation>
    </message>
    <message>
        <source>These parts have no steady state!</source>
        <translation>Diese Bauteile haben keinen eingeschwungenen Zustand!</translation>
    </message>
    <message>
        <source>%1 has no network at a frequency.</source>
        <translation>%1 hat kein Netzwerk bei einer Frequenz.</translation>
    </message>
    <message>
        <source>%1 has no component values yet.</source>
        <translation>%1 hat noch keine Bauteilwerte.</translation>
    </message>
    <message>
        <source>L1 = L2</source>
        <translation>L1 = L2</translation>
    </message>
    <message>
        <source>loss %1 dB at fo, %2</source>
        <translation>Verlust %1 dB bei fo, %2</translation>
    </message>
    <message>
        <source>worst GT %1 dB from %2 to %3, %4</source>
        <translation>schlechtestes GT %1 dB von %2 bis %3, %4</translation>
    </message>
    <message>
        <source>-3 dB from %1 up</source>
        <translation>-3 dB ab %1</translation>
    </message>
    <message>
        <source>-3 dB width %1 (%2 to %3), loaded Q %4, not the %5 of B</source>
        <translation>-3-dB-Bandbreite %1 (%2 bis %3), Betriebsgüte %4, nicht die %5 von B</translation>
    </message>
    <message>
        <source>-3 dB width %1 (%2 to %3), loaded Q %4</source>
        <translation>-3-dB-Bandbreite %1 (%2 bis %3), Betriebsgüte %4</translation>
    </message>
    <message>
        <source>The turns overlap: the wire is thicker than the pitch.</source>
        <translation>Die Windungen überlappen: Der Draht ist dicker als die Steigung.</translation>
    </message>
    <message>
        <source>The wire is thicker than the coil.</source>
        <translation>Der Draht ist dicker als die Spule.</translation>
    </message>
    <message>
        <source>Less than one turn: the formula holds for whole turns.</source>
        <translation>Weniger als eine Windung: Die Formel gilt für ganze Windungen.</translation>
    </message>
    <message>
        <source>The pitch is wider than the coil: a rough value.</source>
        <translation>Die Steigung ist größer als die Spule: ein grober Wert.</translation>
    </message>
    <message>
        <source>The gap exceeds three conductor widths: off by over 8 %.</source>
        <translation>Der Abstand übersteigt drei Leiterbreiten: Fehler über 8 %.</translation>
    </message>
    <message>
        <source>The winding fills the centre: the innermost turns add little.</source>
        <translation>Die Wicklung füllt die Mitte: Die innersten Windungen tragen wenig bei.</translation>
    </message>
    <message>
        <source>V peak</source>
        <translation>V Spitze</translation>
    </message>
    <message>
        <source>V peak-to-peak</source>
        <translation>V Spitze-Spitze</translation>
    </message>
    <message>
        <source>Np over 1 mW</source>
        <translation>Np über 1 mW</translation>
    </message>
    <message>
        <source>R, L, C in series</source>
        <translation>R, L, C in Reihe</translation>
    </message>
    <message>
        <source>R, L, C in parallel</source>
        <translation>R, L, C parallel</translation>
    </message>
    <message>
        <source>(R in series with L) parallel to C</source>
        <translation>(R in Reihe mit L) parallel zu C</translation>
    </message>
    <message>
        <source>(R in series with C) parallel to L</source>
        <translation>(R in Reihe mit C) parallel zu L</translation>
    </message>
    <message>
        <source>(R parallel to L) in series with C</source>
        <translation>(R parallel zu L) in Reihe mit C</translation>
    </message>
    <message>
        <source>(R parallel to C) in series with L</source>
        <translation>(R parallel zu C) in Reihe mit L</translation>
    </message>
    <message>
        <source>Inner conductor below six skin depths: its loss is higher.</source>
        <translation>Innenleiter unter sechs Eindringtiefen: Sein Verlust ist höher.</translation>
    </message>
    <message>
        <source>Metal below three skin depths: its loss is higher.</source>
        <translation>Metall unter drei Eindringtiefen: Sein Verlust ist höher.</translation>
    </message>
    <message>
        <source>Outside 0.01 &lt;= w/h &lt;= 100.</source>
        <translation>Außerhalb von 0.01 &lt;= w/h &lt;= 100.</translation>
    </message>
    <message>
        <source>Outside er &lt;= 128.</source>
        <translation>Außerhalb von er &lt;= 128.</translation>
    </message>
    <message>
        <source>The strip is thicker than wide.</source>
        <translation>Der Streifen ist dicker als breit.</translation>
    </message>
    <message>
        <source>Dispersion holds for w/h &gt;= 0.1 and h below 0.13 wavelengths.</source>
        <translation>Die Dispersion gilt für w/h &gt;= 0.1 und h unter 0.13 Wellenlängen.</translation>
    </message>
    <message>
        <source>Outside w &lt;= 10 (b - t).</source>
        <translation>Außerhalb von w &lt;= 10 (b - t).</translation>
    </message>
    <message>
        <source>Gap above h: the impedance reads high.</source>
        <translation>Spalt über h: Der Wellenwiderstand wird zu hoch angegeben.</translation>
    </message>
    <message>
        <source>Above the limit of the next mode.</source>
        <translation>Über der Grenze des nächsten Modus.</translation>
    </message>
    <message>
        <source>Coaxial line</source>
        <translation>Koaxialleitung</translation>
    </message>
    <message>
        <source>Inner conductor d</source>
        <translation>Innenleiter d</translation>
    </message>
    <message>
        <source>Outer conductor D</source>
        <translation>Außenleiter D</translation>
    </message>
    <message>
        <source>Exact for round concentric conductors.</source>
        <translation>Genau für runde konzentrische Leiter.</translation>
    </message>
    <message>
        <source>Microstrip</source>
        <translation>Mikrostreifen</translation>
    </message>
    <message>
        <source>Strip width w</source>
        <translation>Streifenbreite w</translation>
    </message>
    <message>
        <source>Substrate height h</source>
        <translation>Substratdicke h</translation>
    </message>
    <message>
        <source>Metal thickness t</source>
        <translation>Metalldicke t</translation>
    </message>
    <message>
        <source>Hammerstad and Jensen 1980: 0.01 &lt;= w/h &lt;= 100, er &lt;= 128, within 0.2 %; dispersion by Kirschning and Jansen 1982: er &lt;= 20, within 0.6 %.</source>
        <translation>Hammerstad und Jensen 1980: 0.01 &lt;= w/h &lt;= 100, er &lt;= 128, auf 0.2 %; Dispersion nach Kirschning und Jansen 1982: er &lt;= 20, auf 0.6 %.</translation>
    </message>
    <message>
        <source>Stripline</source>
        <translation>Triplate-Leitung</translation>
    </message>
    <message>
        <source>Plane distance b</source>
        <translation>Plattenabstand b</translation>
    </message>
    <message>
        <source>Wheeler 1978: w &lt;= 10 (b - t), within 0.5 %; centred strip.</source>
        <translation>Wheeler 1978: w &lt;= 10 (b - t), auf 0.5 %; Streifen in der Mitte.</translation>
    </message>
    <message>
        <source>Coplanar</source>
        <translation>Koplanar</translation>
    </message>
    <message>
        <source>Gap s</source>
        <translation>Spalt s</translation>
    </message>
    <message>
        <source>Ghione and Naldi 1984: thin metal, wide grounds, nothing below the substrate.</source>
        <translation>Ghione und Naldi 1984: dünnes Metall, breite Masseflächen, nichts unter dem Substrat.</translation>
    </message>
    <message>
        <source>Coplanar over ground</source>
        <translation>Koplanar über Masse</translation>
    </message>
    <message>
        <source>Ghione and Naldi 1987: thin metal, wide grounds joined to the plane below, s &lt;= h.</source>
        <translation>Ghione und Naldi 1987: dünnes Metall, breite Masseflächen, mit der Fläche darunter verbunden, s &lt;= h.</translation>
    </message>
    <message>
        <source>Voltage Gain V(f)</source>
        <translation>Spannungsverstärkung V(f)</translation>
    </message>
    <message>
        <source>Power Gain GT(f)</source>
        <translation>Leistungsverstärkung GT(f)</translation>
    </message>
    <message>
        <source>Phase Response</source>
        <translation>Phasengang</translation>
    </message>
    <message>
        <source>Group Delay</source>
        <translation>Gruppenlaufzeit</translation>
    </message>
    <message>
        <source>Return Loss at the Source</source>
        <translation>Rückflussdämpfung an der Quelle</translation>
    </message>
    <message>
        <source>VSWR at the Source</source>
        <translation>VSWR an der Quelle</translation>
    </message>
    <message>
        <source>Input Resistance</source>
        <translation>Eingangswirkwiderstand</translation>
    </message>
    <message>
        <source>Input Reactance</source>
        <translation>Eingangsblindwiderstand</translation>
    </message>
    <message>
        <source>Return Loss at the Load</source>
        <translation>Rückflussdämpfung an der Last</translation>
    </message>
    <message>
        <source>Dissipated Part</source>
        <translation>Verlustanteil</translation>
    </message>
    <message>
        <source>far from the calculated design: %1</source>
        <translation>weit vom berechneten Entwurf: %1</translation>
    </message>
    <message>
        <source>%1 dB more loss at fo than the calculated design</source>
        <translation>%1 dB mehr Verlust bei fo als der berechnete Entwurf</translation>
    </message>
    <message>
        <source>no good match near the calculated design; the thorough search looks farther</source>
        <translation>keine gute Anpassung nahe dem berechneten Entwurf; die gründliche Suche sucht weiter entfernt</translation>
    </message>
    <message>
        <source>the source</source>
        <translation>die Quelle</translation>
    </message>
    <message>
        <source>the load</source>
        <translation>die Last</translation>
    </message>
    <message>
        <source>%1 is open at %2</source>
        <translation>%1 ist bei %2 offen</translation>
    </message>
    <message>
        <source>%1 has %2 at %3; only a resistance above 0 can be matched</source>
        <translation>%1 hat %2 bei %3; nur ein Widerstand über 0 lässt sich anpassen</translation>
    </message>
    <message>
        <source>these resistances need a Q of %1 or more, not %2</source>
        <translation>diese Widerstände brauchen ein Q von %1 oder mehr, nicht %2</translation>
    </message>
    <message>
        <source>there is no band</source>
        <translation>es ist kein Band angegeben</translation>
    </message>
    <message>
        <source>a band has to end above where it begins</source>
        <translation>ein Band muss oberhalb seines Anfangs enden</translation>
    </message>
    <message>
        <source>%1 has no impedance at %2</source>
        <translation>%1 hat keine Impedanz bei %2</translation>
    </message>
    <message>
        <source>the resistance of the source at %1 is not above 0</source>
        <translation>der Widerstand der Quelle bei %1 ist nicht über 0</translation>
    </message>
    <message>
        <source>the resistance of the load at %1 is not above 0</source>
        <translation>der Widerstand der Last bei %1 ist nicht über 0</translation>
    </message>
    <message>
        <source>line %1: %2 is no value of an inductor, a capacitor or a resistor</source>
        <translation>Zeile %1: %2 ist kein Wert einer Spule, eines Kondensators oder eines Widerstands</translation>
    </message>
    <message>
        <source>the list holds no values</source>
        <translation>die Liste enthält keine Werte</translation>
    </message>
    <message>
        <source>Nothing to refine: no value is free</source>
        <translation>Nichts zu verfeinern: Kein Wert ist frei</translation>
    </message>
    <message>
        <source>Nothing to refine for: give a band or a frequency</source>
        <translation>Kein Ziel zum Verfeinern: Geben Sie ein Band oder eine Frequenz an</translation>
    </message>
    <message>
        <source>The measured data do not cover the bands</source>
        <translation>Die Messdaten decken die Bänder nicht ab</translation>
    </message>
    <message>
        <source>no ladder with so few parts meets these wishes</source>
        <translation>kein Kettennetzwerk mit so wenigen Bauteilen erfüllt diese Wünsche</translation>
    </message>
    <message>
        <source>the number of parts has to lie between 1 and %1</source>
        <translation>die Zahl der Bauteile muss zwischen 1 und %1 liegen</translation>
    </message>
    <message>
        <source>a smallest value has to lie below its largest one</source>
        <translation>ein kleinster Wert muss unter dem größten liegen</translation>
    </message>
    <message>
        <source>an absorbed part is an inductor or a capacitor above 0</source>
        <translation>ein aufgenommenes Bauteil ist eine Spule oder ein Kondensator über 0</translation>
    </message>
    <message>
        <source>a harmonic limit has an order from 2 on and a gain below 0 dB</source>
        <translation>eine Oberwellengrenze hat eine Ordnung ab 2 und eine Verstärkung unter 0 dB</translation>
    </message>
    <message>
        <source>expected a Q like 40 or 40@100M</source>
        <translation>erwartet: ein Q wie 40 oder 40@100M</translation>
    </message>
    <message>
        <source>expected order and gain in dB like 2:-20</source>
        <translation>erwartet: Ordnung und Verstärkung in dB wie 2:-20</translation>
    </message>
    <message>
        <source>expected a part like C=2p or L=3n</source>
        <translation>erwartet: ein Bauteil wie C=2p oder L=3n</translation>
    </message>
    <message>
        <source>no value on sale lies within the limits</source>
        <translation>kein käuflicher Wert liegt in den Grenzen</translation>
    </message>
    <message>
        <source>the network has no part to choose from a series</source>
        <translation>das Netzwerk hat kein Bauteil, das aus einer Reihe zu wählen wäre</translation>
    </message>
    <message>
        <source>there is no band to choose values for</source>
        <translation>es ist kein Band angegeben, für das Werte zu wählen wären</translation>
    </message>
    <message>
        <source>there is no band to build for</source>
        <translation>es ist kein Band angegeben, für das zu bauen wäre</translation>
    </message>
    <message>
        <source>the network has no part with a tolerance</source>
        <translation>das Netzwerk hat kein Bauteil mit einer Toleranz</translation>
    </message>
    <message>
        <source>Number of variables: %1</source>
        <translation>Zahl der Variablen: %1</translation>
    </message>
    <message>
        <source>Start length : %1</source>
        <translation>Anfangslänge: %1</translation>
    </message>
    <message>
        <source>Achieved minimum length : %1, average length is %2</source>
        <translation>Erreichte kleinste Länge: %1, mittlere Länge ist %2</translation>
    </message>
    <message>
        <source>Actually used iterations : %1</source>
        <translation>Ausgeführte Iterationen: %1</translation>
    </message>
    <message>
        <source>Number of moves : %1</source>
        <translation>Zahl der Züge: %1</translation>
    </message>
    <message>
        <source>Temperature at end : %1, at start it was %2</source>
        <translation>Temperatur am Ende: %1, am Anfang war sie %2</translation>
    </message>
    <message>
        <source>Minimum length in MC : %1, minimum average length is %2</source>
        <translation>Kleinste Länge in MC: %1, kleinste mittlere Länge ist %2</translation>
    </message>
    <message>
        <source>Maximum length in MC : %1</source>
        <translation>Größte Länge in MC: %1</translation>
    </message>
    <message>
        <source>Relative difference : %1</source>
        <translation>Relativer Unterschied: %1</translation>
    </message>
    <message>
        <source>average length is %1, standard deviation is %2</source>
        <translation>mittlere Länge ist %1, Standardabweichung ist %2</translation>
    </message>
    <message>
        <source>Best MC point : %1</source>
        <translation>Bester MC-Punkt: %1</translation>
    </message>
    <message>
        <source>%1 Note if design is already close to optimum we would of course typically top earlier.</source>
        <translation>%1 Ist der Entwurf schon nahe am Optimum, endet der Lauf natürlich meist früher.</translation>
    </message>
    <message>
        <source>%1 You can expect significant improvements in app. %2 simulation points.</source>
        <translation>%1 Deutliche Verbesserungen sind nach etwa %2 Simulationen zu erwarten.</translation>
    </message>
    <message>
        <source>%1 Consider to reduce number of parameters and check if you exploit e.g. matchings.</source>
        <translation>%1 Erwägen Sie weniger Parameter und prüfen Sie, ob Sie z. B. Gleichheiten nutzen.</translation>
    </message>
    <message>
        <source>%1 Check if you give the optimizer enough parameters to improve.</source>
        <translation>%1 Prüfen Sie, ob Sie dem Optimierer genügend Parameter geben.</translation>
    </message>
    <message>
        <source>Consider a local optimizer due to higher speed.</source>
        <translation>Erwägen Sie einen lokalen Optimierer, er ist schneller.</translation>
    </message>
    <message>
        <source>Consider a global optimizer.</source>
        <translation>Erwägen Sie einen globalen Optimierer.</translation>
    </message>
    <message>
        <source>Hint: DFP update formulas used instead of BFGS.</source>
        <translation>Hinweis: DFP-Formeln statt BFGS.</translation>
    </message>
    <message>
        <source>Hint: True H used to create start matrix.</source>
        <translation>Hinweis: Startmatrix aus der wahren Hesse-Matrix.</translation>
    </message>
    <message>
        <source>Hint: No parameter clamping.</source>
        <translation>Hinweis: Parameter ohne Begrenzung.</translation>
    </message>
    <message>
        <source>Hint: Max-norm used in case of Q&lt;0.2. Max norm makes optimization more difficult.</source>
        <translation>Hinweis: Maximumsnorm bei Q&lt;0.2. Sie erschwert die Optimierung.</translation>
    </message>
    <message>
        <source>Hint: Tables written in optimization. This slows down the operation.</source>
        <translation>Hinweis: Beim Optimieren werden Tabellen geschrieben. Das bremst.</translation>
    </message>
    <message>
        <source>Hint: Optimization is less accurate due to numerical noise added for goal function calculation!</source>
        <translation>Hinweis: Die Optimierung ist ungenauer, weil der Zielfunktion Rauschen hinzugefügt wird!</translation>
    </message>
    <message>
        <source>Hint: Optimization using steepest descent, so parameter calculations are a bit inaccurate and slow!</source>
        <translation>Hinweis: Optimierung mit steilstem Abstieg, die Werte sind daher etwas ungenau und langsam!</translation>
    </message>
    <message>
        <source>Hint: Thorough search for the lowest goal. The design may end far from the calculated one.</source>
        <translation>Hinweis: Gründliche Suche nach dem kleinsten Ziel. Der Entwurf kann weit vom berechneten enden.</translation>
    </message>
    <message>
        <source>Hint: Line accuracy modified (0=fast,1=accurate)! Parameter set to %1</source>
        <translation>Hinweis: Genauigkeit der Liniensuche geändert (0=schnell,1=genau)! Parameter ist %1</translation>
    </message>
    <message>
        <source>Hint: Line center parameter modified (0.5=default,0=short)! Parameter set to %1</source>
        <translation>Hinweis: Mittenparameter der Liniensuche geändert (0.5=Vorgabe,0=kurz)! Parameter ist %1</translation>
    </message>
    <message>
        <source>A straight connection</source>
        <translation>Eine direkte Verbindung</translation>
    </message>
    <message>
        <source>GT at least %1 dB from %2 to %3</source>
        <translation>GT mindestens %1 dB von %2 bis %3</translation>
    </message>
    <message>
        <source>passes DC</source>
        <translation>lässt Gleichstrom durch</translation>
    </message>
    <message>
        <source>blocks DC</source>
        <translation>sperrt Gleichstrom</translation>
    </message>
    <message>
        <source>2·fo is %1 down</source>
        <translation>2·fo ist um %1 gedämpft</translation>
    </message>
    <message>
        <source>but %1</source>
        <translation>aber %1</translation>
    </message>
    <message>
        <source>the search finds lossless matches from one pole to one pole</source>
        <translation>die Suche findet verlustlose Anpassungen von einem Pol zu einem Pol</translation>
    </message>
    <message>
        <source>Search, %1 part</source>
        <translation>Suche, %1 Bauteil</translation>
    </message>
    <message>
        <source>Search, %1 parts</source>
        <translation>Suche, %1 Bauteile</translation>
    </message>
    <message>
        <source>%1 matches no load to a source: there is nothing to search for.</source>
        <translation>%1 passt keine Last an eine Quelle an: Es gibt nichts zu suchen.</translation>
    </message>
    <message>
        <source>the line would be %1 long</source>
        <translation>die Leitung wäre %1 lang</translation>
    </message>
    <message>
        <source>it is no matching network</source>
        <translation>es ist kein Anpassnetzwerk</translation>
    </message>
    <message>
        <source>it is no resistive network</source>
        <translation>es ist kein ohmsches Netzwerk</translation>
    </message>
    <message>
        <source>no amplifier stage is wanted</source>
        <translation>keine Verstärkerstufe gewünscht</translation>
    </message>
    <message>
        <source>its resistors would waste power</source>
        <translation>seine Widerstände würden Leistung verbrauchen</translation>
    </message>
    <message>
        <source>its output is not balanced</source>
        <translation>sein Ausgang ist nicht symmetrisch</translation>
    </message>
    <message>
        <source>no balanced output is wanted</source>
        <translation>kein symmetrischer Ausgang gewünscht</translation>
    </message>
    <message>
        <source>it does not pass DC</source>
        <translation>es lässt keinen Gleichstrom durch</translation>
    </message>
    <message>
        <source>it does not block DC</source>
        <translation>es sperrt Gleichstrom nicht</translation>
    </message>
    <message>
        <source>at 2·fo it is only %1 down</source>
        <translation>bei 2·fo dämpft es nur um %1</translation>
    </message>
    <message>
        <source>it loses %1 with these inputs</source>
        <translation>es verliert %1 mit diesen Eingaben</translation>
    </message>
    <message>
        <source>its + output is %1</source>
        <translation>sein +-Ausgang ist %1</translation>
    </message>
    <message>
        <source>within 3 dB from DC to %1</source>
        <translation>auf 3 dB von Gleichstrom bis %1</translation>
    </message>
    <message>
        <source>low-pass up to %1</source>
        <translation>Tiefpass bis %1</translation>
    </message>
    <message>
        <source>high-pass from %1</source>
        <translation>Hochpass ab %1</translation>
    </message>
    <message>
        <source>%1 wide</source>
        <translation>%1 breit</translation>
    </message>
    <message>
        <source>%1 where %2 is wanted and cannot be chosen</source>
        <translation>%1, gewünscht sind %2, nicht wählbar</translation>
    </message>
    <message>
        <source>%1 where %2 is wanted</source>
        <translation>%1, gewünscht sind %2</translation>
    </message>
    <message>
        <source>%1 and cannot be chosen</source>
        <translation>%1, nicht wählbar</translation>
    </message>
    <message>
        <source>%1 is %2</source>
        <translation>%1 ist %2</translation>
    </message>
    <message>
        <source>its secondary may float</source>
        <translation>die Sekundärseite darf potentialfrei sein</translation>
    </message>
    <message>
        <source>v is %1</source>
        <translation>v ist %1</translation>
    </message>
    <message>
        <source>built from the load&apos;s side</source>
        <translation>von der Lastseite her gebaut</translation>
    </message>
    <message>
        <source>not suited: %1</source>
        <translation>ungeeignet: %1</translation>
    </message>
    <message>
        <source>refused: %1</source>
        <translation>abgelehnt: %1</translation>
    </message>
    <message>
        <source>%1, L and C interchanged</source>
        <translation>%1, L und C vertauscht</translation>
    </message>
    <message>
        <source>%1, R1 and R2 switched</source>
        <translation>%1, R1 und R2 vertauscht</translation>
    </message>
    <message>
        <source>%1 does not exist</source>
        <translation>%1 gibt es nicht</translation>
    </message>
    <message>
        <source>%1 is too small to be built</source>
        <translation>%1 ist zu klein zum Bauen</translation>
    </message>
    <message>
        <source>%1 is too large to be built</source>
        <translation>%1 ist zu groß zum Bauen</translation>
    </message>
    <message>
        <source>%1 has a reactance of %2, where parasitics decide</source>
        <translation>%1 hat einen Blindwiderstand von %2, bei dem Streugrößen entscheiden</translation>
    </message>
    <message>
        <source>R1 %1, R2 %2, fo %3, ideal ratio v %4</source>
        <translation>R1 %1, R2 %2, fo %3, ideales Verhältnis v %4</translation>
    </message>
    <message>
        <source>%1 The answer is: %2.</source>
        <translation>%1 Die Antwort ist: %2.</translation>
    </message>
    <message>
        <source>%1 The answer is %2.</source>
        <translation>%1 Die Antwort ist %2.</translation>
    </message>
    <message>
        <source>%1 to %2 at %3</source>
        <translation>%1 auf %2 bei %3</translation>
    </message>
    <message>
        <source>Matching networks</source>
        <translation>Anpassnetzwerke</translation>
    </message>
    <message>
        <source>Lines and transformers</source>
        <translation>Leitungen und Übertrager</translation>
    </message>
    <message>
        <source>What voltage ratio v = V2/V1 has a lossless match from %1 to %2?</source>
        <translation>Welches Spannungsverhältnis v = V2/V1 hat eine verlustlose Anpassung von %1 auf %2?</translation>
    </message>
    <message>
        <source>Equal power at both ends: v = √(R2/R1).</source>
        <translation>Gleiche Leistung an beiden Enden: v = √(R2/R1).</translation>
    </message>
    <message>
        <source>A low-pass L-section matches %1. Which %2 does it need?</source>
        <translation>Ein Tiefpass-L-Glied passt %1 an. Welche %2 braucht es?</translation>
    </message>
    <message>
        <source>inductance</source>
        <translation>Induktivität</translation>
    </message>
    <message>
        <source>capacitance</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>L = q·Rlow/ω with q = √(Rhigh/Rlow - 1), in series on the low side.</source>
        <translation>L = q·Rlow/ω mit q = √(Rhigh/Rlow - 1), längs auf der niederohmigen Seite.</translation>
    </message>
    <message>
        <source>C = q/(ω·Rhigh) with q = √(Rhigh/Rlow - 1), across the high side.</source>
        <translation>C = q/(ω·Rhigh) mit q = √(Rhigh/Rlow - 1), quer auf der hochohmigen Seite.</translation>
    </message>
    <message>
        <source>What loaded Q has an L-section between %1 and %2?</source>
        <translation>Welche Betriebsgüte hat ein L-Glied zwischen %1 und %2?</translation>
    </message>
    <message>
        <source>Half the reactance over the resistance it stands with: √(Rhigh/Rlow - 1)/2.</source>
        <translation>Der halbe Blindwiderstand zu dem Widerstand, bei dem er steht: √(Rhigh/Rlow - 1)/2.</translation>
    </message>
    <message>
        <source>across the source</source>
        <translation>parallel zur Quelle</translation>
    </message>
    <message>
        <source>across the load</source>
        <translation>parallel zur Last</translation>
    </message>
    <message>
        <source>An L-section matches a source of %1 to a load of %2. Where does its shunt part stand?</source>
        <translation>Ein L-Glied passt eine Quelle von %1 an eine Last von %2 an. Wo liegt sein Querelement?</translation>
    </message>
    <message>
        <source>The shunt part lies across the higher resistance and lowers it.</source>
        <translation>Das Querelement liegt parallel zum größeren Widerstand und verkleinert ihn.</translation>
    </message>
    <message>
        <source>A pi section with Q = %1 matches %2. How large is C1 across the source?</source>
        <translation>Ein Pi-Glied mit Q = %1 passt %2 an. Wie groß ist C1 parallel zur Quelle?</translation>
    </message>
    <message>
        <source>C1 = 1/(2π·f·XC1) with XC1 = (R1 + √(R1·R2))/(2·Q): the two ends share 2·Q in the ratio √R1 : √R2.</source>
        <translation>C1 = 1/(2π·f·XC1) mit XC1 = (R1 + √(R1·R2))/(2·Q): Die beiden Enden teilen sich 2·Q im Verhältnis √R1 : √R2.</translation>
    </message>
    <message>
        <source>A tapped series tank with Q = %1 matches %2. How large is its coil?</source>
        <translation>Ein angezapfter Serienkreis mit Q = %1 passt %2 an. Wie groß ist seine Spule?</translation>
    </message>
    <message>
        <source>L = 2·Q·R1/(2π·f): the source damps it together with the equally large matched load.</source>
        <translation>L = 2·Q·R1/(2π·f): Die Quelle bedämpft sie zusammen mit der gleich großen angepassten Last.</translation>
    </message>
    <message>
        <source>Which of these circuits cannot match from %1 down to %2 unless R1 and R2 are switched?</source>
        <translation>Welche dieser Schaltungen kann nicht von %1 hinunter auf %2 anpassen, ohne R1 und R2 zu vertauschen?</translation>
    </message>
    <message>
        <source>The tapped series tank and LCCL only step up from source to load, so they need R2 &gt; R1; pi section, line and gamma go both ways, the double L only down.</source>
        <translation>Der angezapfte Serienkreis und LCCL transformieren von der Quelle zur Last nur hinauf, brauchen also R2 &gt; R1; Pi-Glied, Leitung und Gamma können beides, das Doppel-L nur hinunter.</translation>
    </message>
    <message>
        <source>Two L-sections match %1 to %2 with equal Q. Which resistance lies between them?</source>
        <translation>Zwei L-Glieder passen %1 mit gleichem Q an %2 an. Welcher Widerstand liegt zwischen ihnen?</translation>
    </message>
    <message>
        <source>Equal steps: Rm = √(R1·R2).</source>
        <translation>Gleiche Schritte: Rm = √(R1·R2).</translation>
    </message>
    <message>
        <source>Which characteristic impedance must a quarter-wave line have to match %1 to %2?</source>
        <translation>Welchen Wellenwiderstand muss eine Viertelwellenleitung haben, um %1 an %2 anzupassen?</translation>
    </message>
    <message>
        <source>How long is a quarter-wave line at %1 in a dielectric with εr = %2?</source>
        <translation>Wie lang ist eine Viertelwellenleitung bei %1 in einem Dielektrikum mit εr = %2?</translation>
    </message>
    <message>
        <source>A lattice balun feeds two loads of %1 each from %2 at %3. How large are its coils?</source>
        <translation>Ein Brückenbalun speist zwei Lasten von je %1 aus %2 bei %3. Wie groß sind seine Spulen?</translation>
    </message>
    <message>
        <source>All four reactances are X = √(2·R1·R2), so L = X/(2π·f).</source>
        <translation>Alle vier Blindwiderstände sind X = √(2·R1·R2), also L = X/(2π·f).</translation>
    </message>
    <message>
        <source>About what bandwidth has a matching network with a loaded Q of %1 at %2?</source>
        <translation>Welche Bandbreite hat ein Anpassnetzwerk mit einer Betriebsgüte von %1 bei %2 ungefähr?</translation>
    </message>
    <message>
        <source>Decibels</source>
        <translation>Dezibel</translation>
    </message>
    <message>
        <source>Numbers and standard values</source>
        <translation>Zahlen und Normwerte</translation>
    </message>
    <message>
        <source>A network passes %1 of the available power to its load. What is its transducer gain GT?</source>
        <translation>Ein Netzwerk gibt %1 der verfügbaren Leistung an seine Last ab. Wie groß ist seine Übertragungsverstärkung GT?</translation>
    </message>
    <message>
        <source>20·log(v) of a network is %1. What is v = V2/V1?</source>
        <translation>20·log(v) eines Netzwerks ist %1. Wie groß ist v = V2/V1?</translation>
    </message>
    <message>
        <source>How many dBm are %1?</source>
        <translation>Wie viel dBm sind %1?</translation>
    </message>
    <message>
        <source>0 dBm is 1 mW, and 10·log(P/1 mW) counts from there.</source>
        <translation>0 dBm sind 1 mW, von dort zählt 10·log(P/1 mW).</translation>
    </message>
    <message>
        <source>A match with a loss of %1 is followed by a pad of %2. How many percent of the power are left?</source>
        <translation>Auf eine Anpassung mit %1 Verlust folgt ein Dämpfungsglied mit %2. Wie viel Prozent der Leistung bleiben?</translation>
    </message>
    <message>
        <source>Decibels add, factors multiply: 100 %·10^(-sum/10).</source>
        <translation>Dezibel addieren, Faktoren multiplizieren sich: 100 %·10^(-Summe/10).</translation>
    </message>
    <message>
        <source>A capacitor field reads &quot;%1&quot;. How many %2?</source>
        <translation>In einem Kondensatorfeld steht &quot;%1&quot;. Wie viel %2 sind das?</translation>
    </message>
    <message>
        <source>f, p, n, u stand for 1e-15, 1e-12, 1e-9 and 1e-6.</source>
        <translation>f, p, n, u stehen für 1e-15, 1e-12, 1e-9 und 1e-6.</translation>
    </message>
    <message>
        <source>Which value of the series %1 is nearest to %2?</source>
        <translation>Welcher Wert der Reihe %1 liegt am nächsten an %2?</translation>
    </message>
    <message>
        <source>E12: 10, 12, 15, 18, 22, 27, 33, 39, 47, 56, 68, 82; E24 has 11, 13, 16, 20, 24, 30, 36, 43, 51, 62, 75, 91 between them.</source>
        <translation>E12: 10, 12, 15, 18, 22, 27, 33, 39, 47, 56, 68, 82; E24 hat dazwischen 11, 13, 16, 20, 24, 30, 36, 43, 51, 62, 75, 91.</translation>
    </message>
    <message>
        <source>A resistor must be at least %1. Which is the smallest value of E12 that will do?</source>
        <translation>Ein Widerstand muss mindestens %1 haben. Welches ist der kleinste Wert aus E12, der genügt?</translation>
    </message>
    <message>
        <source>A good starting point is known and the goal is %1. About how many simulations until %2 parameters have improved markedly, by the guide&apos;s rule?</source>
        <translation>Ein guter Startpunkt ist bekannt und das Ziel ist %1. Wie viele Simulationen braucht es nach der Regel des Ratgebers ungefähr, bis %2 Parameter deutlich besser sind?</translation>
    </message>
    <message>
        <source>highly nonlinear</source>
        <translation>stark nichtlinear</translation>
    </message>
    <message>
        <source>well behaved</source>
        <translation>gutartig</translation>
    </message>
    <message>
        <source>k·n²/2 + 2·n; each difficulty doubles k, which starts at 1.</source>
        <translation>k·n²/2 + 2·n; jede Schwierigkeit verdoppelt k, das bei 1 beginnt.</translation>
    </message>
    <message>
        <source>a local optimizer</source>
        <translation>ein lokaler Optimierer</translation>
    </message>
    <message>
        <source>a global optimizer</source>
        <translation>ein globaler Optimierer</translation>
    </message>
    <message>
        <source>The designer has found a good starting point. Which optimizer first?</source>
        <translation>Der Entwickler hat einen guten Startpunkt gefunden. Welcher Optimierer zuerst?</translation>
    </message>
    <message>
        <source>The starting point is probably bad. Which optimizer first?</source>
        <translation>Der Startpunkt ist vermutlich schlecht. Welcher Optimierer zuerst?</translation>
    </message>
    <message>
        <source>From a good start a local optimizer is faster, as it ends in the optimum next to it; from a bad one only a global optimizer gets out of local optima.</source>
        <translation>Von einem guten Start ist ein lokaler Optimierer schneller, denn er endet im nächsten Optimum; von einem schlechten kommt nur ein globaler aus lokalen Optima heraus.</translation>
    </message>
    <message>
        <source>Coils and capacitors</source>
        <translation>Spulen und Kondensatoren</translation>
    </message>
    <message>
        <source>What reactance has %1 at %2?</source>
        <translation>Welchen Blindwiderstand hat %1 bei %2?</translation>
    </message>
    <message>
        <source>Which capacitor has a reactance of %1 at %2?</source>
        <translation>Welcher Kondensator hat einen Blindwiderstand von %1 bei %2?</translation>
    </message>
    <message>
        <source>A coil of %1 has %2 between its ends. Where is its self-resonance?</source>
        <translation>Eine Spule von %1 hat %2 zwischen ihren Enden. Wo liegt ihre Eigenresonanz?</translation>
    </message>
    <message>
        <source>A coil of 100 nH with 1 pF between its ends resonates at 503 MHz. What inductance does it show at %1?</source>
        <translation>Eine Spule von 100 nH mit 1 pF zwischen ihren Enden ist bei 503 MHz in Resonanz. Welche Induktivität zeigt sie bei %1?</translation>
    </message>
    <message>
        <source>A capacitor of %1 has 1 nH in its leads. What capacitance does it show at %2?</source>
        <translation>Ein Kondensator von %1 hat 1 nH in seinen Zuleitungen. Welche Kapazität zeigt er bei %2?</translation>
    </message>
    <message>
        <source>A coil of %1 has a loss resistance of %2. What is its Q at %3 (far below its resonance)?</source>
        <translation>Eine Spule von %1 hat einen Verlustwiderstand von %2. Wie groß ist ihr Q bei %3 (weit unter ihrer Resonanz)?</translation>
    </message>
    <message>
        <source>The coils have a Q of %1, the capacitors one of %2. What is the total effective element Q?</source>
        <translation>Die Spulen haben ein Q von %1, die Kondensatoren eines von %2. Wie groß ist die gesamte wirksame Bauteilgüte?</translation>
    </message>
    <message>
        <source>Losses add, so it is the harmonic mean 2/(1/QL + 1/QC).</source>
        <translation>Verluste addieren sich, also ist es das harmonische Mittel 2/(1/QL + 1/QC).</translation>
    </message>
    <message>
        <source>Ls = %1 and Cs = %2 in series lie across Lp = %3. At which frequency is the combination a short?</source>
        <translation>Ls = %1 und Cs = %2 in Reihe liegen parallel zu Lp = %3. Bei welcher Frequenz ist die Anordnung ein Kurzschluss?</translation>
    </message>
    <message>
        <source>Ls = %1 and Cs = %2 in series lie across Lp = %3. At which frequency is the combination open?</source>
        <translation>Ls = %1 und Cs = %2 in Reihe liegen parallel zu Lp = %3. Bei welcher Frequenz ist die Anordnung offen?</translation>
    </message>
    <message>
        <source>The series branch alone: 1/(2π·√(Ls·Cs)).</source>
        <translation>Der Serienzweig allein: 1/(2π·√(Ls·Cs)).</translation>
    </message>
    <message>
        <source>The loop of all three parts: 1/(2π·√((Ls + Lp)·Cs)).</source>
        <translation>Die Masche aller drei Bauteile: 1/(2π·√((Ls + Lp)·Cs)).</translation>
    </message>
    <message>
        <source>A network for %1 has its L and C interchanged. What replaces %2?</source>
        <translation>In einem Netzwerk für %1 werden L und C vertauscht. Was ersetzt %2?</translation>
    </message>
    <message>
        <source>The coil of the same reactance at fo: L = 1/((2π·fo)²·C).</source>
        <translation>Die Spule mit demselben Blindwiderstand bei fo: L = 1/((2π·fo)²·C).</translation>
    </message>
    <message>
        <source>Attenuators</source>
        <translation>Dämpfungsglieder</translation>
    </message>
    <message>
        <source>Power amplifiers</source>
        <translation>Leistungsverstärker</translation>
    </message>
    <message>
        <source>A %1 pad in a %2 line shall attenuate by %3. How large are its two series resistors?</source>
        <translation>Ein %1-Glied in einer %2-Leitung soll um %3 dämpfen. Wie groß sind seine beiden Längswiderstände?</translation>
    </message>
    <message>
        <source>A %1 pad in a %2 line shall attenuate by %3. How large are its two shunt resistors?</source>
        <translation>Ein %1-Glied in einer %2-Leitung soll um %3 dämpfen. Wie groß sind seine beiden Querwiderstände?</translation>
    </message>
    <message>
        <source>%1 with a = 10^(dB/20).</source>
        <translation>%1 mit a = 10^(dB/20).</translation>
    </message>
    <message>
        <source>A resistive L pad matches %1 to %2. How large is its series resistor?</source>
        <translation>Ein ohmsches L-Glied passt %1 an %2 an. Wie groß ist sein Längswiderstand?</translation>
    </message>
    <message>
        <source>A resistive L pad matches %1 to %2. How many dB does it lose?</source>
        <translation>Ein ohmsches L-Glied passt %1 an %2 an. Wie viel dB verliert es?</translation>
    </message>
    <message>
        <source>20·log(√r + √(r - 1)) with r = R1/R2, the least that any pad can lose.</source>
        <translation>20·log(√r + √(r - 1)) mit r = R1/R2, das Wenigste, das ein Dämpfungsglied verlieren kann.</translation>
    </message>
    <message>
        <source>%1 at a supply of %2 and a saturation voltage of %3</source>
        <translation>%1 bei einer Versorgung von %2 und einer Sättigungsspannung von %3</translation>
    </message>
    <message>
        <source>Which load resistance draws %1 from a linear stage?</source>
        <translation>Welcher Lastwiderstand entnimmt einer linearen Stufe %1?</translation>
    </message>
    <message>
        <source>What efficiency in percent can class B reach at a supply of %1 with a saturation voltage of %2?</source>
        <translation>Welchen Wirkungsgrad in Prozent kann Klasse B bei einer Versorgung von %1 mit einer Sättigungsspannung von %2 erreichen?</translation>
    </message>
    <message>
        <source>What mean supply current does a class-B stage draw for %1?</source>
        <translation>Welchen mittleren Speisestrom zieht eine Klasse-B-Stufe für %1?</translation>
    </message>
    <message>
        <source>2·I1/π with I1 = 2·P/(Ub - Usat).</source>
        <translation>2·I1/π mit I1 = 2·P/(Ub - Usat).</translation>
    </message>
    <message>
        <source>Which voltage must the switch of a class-E stage with a loaded Q of %1 stand at a supply of %2 (saturation %3)?</source>
        <translation>Welche Spannung muss der Schalter einer Klasse-E-Endstufe mit einer Betriebsgüte von %1 bei einer Versorgung von %2 aushalten (Sättigung %3)?</translation>
    </message>
    <message>
        <source>About 3.6 times the swing above the saturation voltage: 3.6·(Ub - Usat) + Usat.</source>
        <translation>Etwa das 3.6-Fache des Hubs über der Sättigungsspannung: 3.6·(Ub - Usat) + Usat.</translation>
    </message>
    <message>
        <source>Which load resistance needs a class-E stage for %1 with a loaded Q of %2?</source>
        <translation>Welchen Lastwiderstand braucht eine Klasse-E-Endstufe für %1 mit einer Betriebsgüte von %2?</translation>
    </message>
    <message>
        <source>With the usual choke 0.585·(1 - 0.45/Q - 0.4/Q²)·(Ub - Usat)²/P.</source>
        <translation>Mit der üblichen Drossel 0.585·(1 - 0.45/Q - 0.4/Q²)·(Ub - Usat)²/P.</translation>
    </message>
    <message>
        <source>A resistor string of %1 hangs on %2. Which resistance stands between ground and the tap of %3?</source>
        <translation>Eine Widerstandskette von %1 liegt an %2. Welcher Widerstand liegt zwischen Masse und dem Abgriff von %3?</translation>
    </message>
    <message>
        <source>Frequency response</source>
        <translation>Frequenzgang</translation>
    </message>
    <message>
        <source>Losses</source>
        <translation>Verluste</translation>
    </message>
    <message>
        <source>A source of %1 is connected to a load of %2 without any match. What is GT?</source>
        <translation>Eine Quelle von %1 ist ohne Anpassung mit einer Last von %2 verbunden. Wie groß ist GT?</translation>
    </message>
    <message>
        <source>A lossless low-pass L-section matches %1 to %2. By how many dB is GT at 2·fo below that at fo?</source>
        <translation>Ein verlustloses Tiefpass-L-Glied passt %1 an %2 an. Um wie viel dB liegt GT bei 2·fo unter dem bei fo?</translation>
    </message>
    <message>
        <source>10·log((9·r² - 14·r + 9)/(4·r)) with r = R2/R1, from the network&apos;s |H|².</source>
        <translation>10·log((9·r² - 14·r + 9)/(4·r)) mit r = R2/R1, aus |H|² des Netzwerks.</translation>
    </message>
    <message>
        <source>Q is set to 10 where it can be chosen. Which match from %1 to %2 has the widest band?</source>
        <translation>Q ist 10, wo es wählbar ist. Welche Anpassung von %1 auf %2 hat das breiteste Band?</translation>
    </message>
    <message>
        <source>The two L-sections of LCCL through √(R1·R2) have the lowest Q that two steps allow, whatever the Q field says; the others follow the chosen Q.</source>
        <translation>Die beiden L-Glieder von LCCL über √(R1·R2) haben das kleinste Q, das zwei Schritte erlauben, was auch im Feld Q steht; die anderen folgen dem gewählten Q.</translation>
    </message>
    <message>
        <source>Which match from %1 to %2 keeps the second harmonic down best (pi section with Q = 8)?</source>
        <translation>Welche Anpassung von %1 auf %2 unterdrückt die zweite Harmonische am besten (Pi-Glied mit Q = 8)?</translation>
    </message>
    <message>
        <source>A pi section is a low-pass of third order whose Q can be high; the L-section is of second order with a low Q, and the line passes even harmonics.</source>
        <translation>Ein Pi-Glied ist ein Tiefpass dritter Ordnung, dessen Q hoch sein kann; das L-Glied ist zweiter Ordnung mit kleinem Q, und die Leitung lässt gerade Harmonische durch.</translation>
    </message>
    <message>
        <source>A match from %1 to %2 shall carry the supply current of the stage as well. Which circuit does?</source>
        <translation>Eine Anpassung von %1 auf %2 soll auch den Speisestrom der Stufe führen. Welche Schaltung kann das?</translation>
    </message>
    <message>
        <source>A match from %1 to %2 shall keep the supply of the stage away from the load. Which circuit does?</source>
        <translation>Eine Anpassung von %1 auf %2 soll die Versorgung der Stufe von der Last fernhalten. Welche Schaltung kann das?</translation>
    </message>
    <message>
        <source>The path from source to load of the line, of the low-pass gamma and of the pi section holds no capacitor, and no coil lies across it.</source>
        <translation>Im Weg von der Quelle zur Last liegt bei der Leitung, dem Tiefpass-Gamma und dem Pi-Glied kein Kondensator und quer dazu keine Spule.</translation>
    </message>
    <message>
        <source>A series capacitor (series tank, LCCL, band-pass), or coupled coils (transformer), let no direct current through.</source>
        <translation>Ein Längskondensator (Serienkreis, LCCL, Bandpass) oder gekoppelte Spulen (Übertrager) lassen keinen Gleichstrom durch.</translation>
    </message>
    <message>
        <source>A pi section with a loaded Q of %1 from 50 Ω to %2 is built of parts with an element Q of %3. About what does it lose at fo?</source>
        <translation>Ein Pi-Glied mit einer Betriebsgüte von %1 von 50 Ω auf %2 besteht aus Bauteilen mit einer Güte von %3. Wie viel verliert es bei fo ungefähr?</translation>
    </message>
    <message>
        <source>Coil and capacitors take Q(loaded)/Q(element) each of what the resistances damp: about 20·log(1 + 2·Q(loaded)/Q(element)). The exact number is the program&apos;s response with lossy parts.</source>
        <translation>Spule und Kondensatoren nehmen je Q(Betrieb)/Q(Bauteil) dessen auf, was die Widerstände dämpfen: etwa 20·log(1 + 2·Q(Betrieb)/Q(Bauteil)). Die genaue Zahl ist der Frequenzgang des Programms mit verlustbehafteten Bauteilen.</translation>
    </message>
    <message>
        <source>All parts have an element Q of 80. Which match from 50 Ω to %1 loses least (Q = 12 where it can be chosen)?</source>
        <translation>Alle Bauteile haben eine Güte von 80. Welche Anpassung von 50 Ω auf %1 verliert am wenigsten (Q = 12, wo es wählbar ist)?</translation>
    </message>
    <message>
        <source>Loss grows with the loaded Q, and the two-part L-section has the lowest.</source>
        <translation>Der Verlust wächst mit der Betriebsgüte, und das L-Glied aus zwei Teilen hat die kleinste.</translation>
    </message>
    <message>
        <source>A lossless low-pass L-section matches %1 to %2 at %3. Up to which frequency is GT better than -3 dB?</source>
        <translation>Ein verlustloses Tiefpass-L-Glied passt %1 bei %3 an %2 an. Bis zu welcher Frequenz ist GT besser als -3 dB?</translation>
    </message>
    <message>
        <source>For R2 = 4·R1 it is √(7/3)·fo, from the second-order network&apos;s |H|².</source>
        <translation>Für R2 = 4·R1 ist es √(7/3)·fo, aus |H|² des Netzwerks zweiter Ordnung.</translation>
    </message>
    <message>
        <source>No file name</source>
        <translation>Kein Dateiname</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot; kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Cannot read &quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot; kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it is too large</source>
        <translation>sie ist zu groß</translation>
    </message>
    <message>
        <source>it is not a settings file</source>
        <translation>es ist keine Einstellungsdatei</translation>
    </message>
    <message>
        <source>the old file could not be kept aside</source>
        <translation>die alte Datei konnte nicht beiseitegelegt werden</translation>
    </message>
    <message>
        <source>The old file is kept as &quot;%1&quot;</source>
        <translation>Die alte Datei liegt als &quot;%1&quot; bereit</translation>
    </message>
    <message>
        <source>There are no component values to export yet.</source>
        <translation>Es gibt noch keine Bauteilwerte zum Ausgeben.</translation>
    </message>
    <message>
        <source>The lower frequency must be above 0 and the upper one finite.</source>
        <translation>Die untere Frequenz muss über 0 liegen und die obere endlich sein.</translation>
    </message>
    <message>
        <source>The upper frequency must be above the lower one.</source>
        <translation>Die obere Frequenz muss über der unteren liegen.</translation>
    </message>
    <message>
        <source>The number of points must be 2 to %1.</source>
        <translation>Die Zahl der Punkte muss zwischen 2 und %1 liegen.</translation>
    </message>
    <message>
        <source>The reference resistance must be above 0.</source>
        <translation>Der Bezugswiderstand muss über 0 liegen.</translation>
    </message>
    <message>
        <source>Listing</source>
        <translation>Bauteilliste</translation>
    </message>
    <message>
        <source>SPICE netlist</source>
        <translation>SPICE-Netzliste</translation>
    </message>
    <message>
        <source>Touchstone two-port</source>
        <translation>Touchstone-Zweitor</translation>
    </message>
    <message>
        <source>Response table (CSV)</source>
        <translation>Frequenzgangtabelle (CSV)</translation>
    </message>
    <message>
        <source>Design (JSON)</source>
        <translation>Entwurf (JSON)</translation>
    </message>
    <message>
        <source>ngspice is not installed; Debian&apos;s package has the same name: apt install ngspice</source>
        <translation>ngspice ist nicht installiert; das Debian-Paket heißt ebenso: apt install ngspice</translation>
    </message>
    <message>
        <source>it printed nothing</source>
        <translation>es gab nichts aus</translation>
    </message>
    <message>
        <source>ngspice cannot be started: %1</source>
        <translation>ngspice lässt sich nicht starten: %1</translation>
    </message>
    <message>
        <source>ngspice was still busy after %1 s and was stopped</source>
        <translation>ngspice rechnete nach %1 s noch und wurde angehalten</translation>
    </message>
    <message>
        <source>ngspice was stopped</source>
        <translation>ngspice wurde angehalten</translation>
    </message>
    <message>
        <source>ngspice failed: %1</source>
        <translation>ngspice ist gescheitert: %1</translation>
    </message>
    <message>
        <source>The netlist cannot be written: %1</source>
        <translation>Die Netzliste kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>ngspice measured nothing: %1</source>
        <translation>ngspice hat nichts gemessen: %1</translation>
    </message>
    <message>
        <source>Computed</source>
        <translation>Berechnet</translation>
    </message>
    <message>
        <source>Power in R</source>
        <translation>Leistung in R</translation>
    </message>
    <message>
        <source>Supply current</source>
        <translation>Speisestrom</translation>
    </message>
    <message>
        <source>Efficiency</source>
        <translation>Wirkungsgrad</translation>
    </message>
    <message>
        <source>Peak voltage</source>
        <translation>Spitzenspannung</translation>
    </message>
    <message>
        <source>Peak current</source>
        <translation>Spitzenstrom</translation>
    </message>
    <message>
        <source>Voltage left at turn-on</source>
        <translation>Restspannung beim Einschalten</translation>
    </message>
    <message>
        <source>Load current at fo</source>
        <translation>Laststrom bei fo</translation>
    </message>
    <message>
        <source>Harmonic at %1</source>
        <translation>Harmonische bei %1</translation>
    </message>
    <message>
        <source>Only a class-E stage is compared with ngspice</source>
        <translation>Nur eine Klasse-E-Endstufe wird mit ngspice verglichen</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Load current</source>
        <translation>Laststrom</translation>
    </message>
    <message>
        <source>Relative</source>
        <translation>Relativ</translation>
    </message>
    <message>
        <source>this is not JSON</source>
        <translation>das ist kein JSON</translation>
    </message>
    <message>
        <source>expected a JSON object</source>
        <translation>erwartet: ein JSON-Objekt</translation>
    </message>
    <message>
        <source>expected the version of a Kelvro project</source>
        <translation>erwartet: die Version eines Kelvro-Projekts</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>expected an object</source>
        <translation>erwartet: ein Objekt</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>expected a text</source>
        <translation>erwartet: ein Text</translation>
    </message>
    <message>
        <source>expected &quot;touchstone&quot; or &quot;path&quot;</source>
        <translation>erwartet: &quot;touchstone&quot; oder &quot;path&quot;</translation>
    </message>
    <message>
        <source>%1 has changed since %2 was saved</source>
        <translation>%1 hat sich geändert, seit %2 gesichert wurde</translation>
    </message>
    <message>
        <source>a list of snapshots</source>
        <translation>eine Liste von Schnappschüssen</translation>
    </message>
    <message>
        <source>expected an object with name and network</source>
        <translation>erwartet: ein Objekt mit name und network</translation>
    </message>
    <message>
        <source>a boolean</source>
        <translation>ein Wahrheitswert</translation>
    </message>
    <message>
        <source>an object with source, ladder and load</source>
        <translation>ein Objekt mit source, ladder und load</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>expected an object with low and high</source>
        <translation>erwartet: ein Objekt mit low und high</translation>
    </message>
    <message>
        <source>expected low above 0 and high above low</source>
        <translation>erwartet: low über 0 und high über low</translation>
    </message>
    <message>
        <source>an impedance as text</source>
        <translation>eine Impedanz als Text</translation>
    </message>
    <message>
        <source>expected a frequency</source>
        <translation>erwartet: eine Frequenz</translation>
    </message>
    <message>
        <source>there is no file &quot;%1&quot;</source>
        <translation>es gibt keine Datei &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1: too large for a project (64 MB)</source>
        <translation>%1: zu groß für ein Projekt (64 MB)</translation>
    </message>
    <message>
        <source>cannot read &quot;%1&quot;</source>
        <translation>&quot;%1&quot; kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>cannot read &quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot; kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a file of data</source>
        <translation>&quot;%1&quot; ist keine Datei mit Daten</translation>
    </message>
    <message>
        <source>%1: expected at most 32 MB of data, found %2 MB</source>
        <translation>%1: erwartet: höchstens 32 MB Daten, gefunden: %2 MB</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>expected one or two ports, found %1</source>
        <translation>erwartet: ein oder zwei Tore, gefunden: %1</translation>
    </message>
    <message>
        <source>expected text, found binary data</source>
        <translation>erwartet: Text, gefunden: Binärdaten</translation>
    </message>
    <message>
        <source>a second option line is ignored</source>
        <translation>eine zweite Optionszeile wird übergangen</translation>
    </message>
    <message>
        <source>expected the option line before the data</source>
        <translation>erwartet: die Optionszeile vor den Daten</translation>
    </message>
    <message>
        <source>a unit, S, Y or Z, MA, DB or RI, or R with its resistance</source>
        <translation>eine Einheit, S, Y oder Z, MA, DB oder RI, oder R mit seinem Widerstand</translation>
    </message>
    <message>
        <source>a resistance above 0 behind R</source>
        <translation>ein Widerstand über 0 hinter R</translation>
    </message>
    <message>
        <source>expected S, Y or Z parameters, found %1, hybrid parameters, which are not read</source>
        <translation>erwartet: S-, Y- oder Z-Parameter, gefunden: %1, Hybridparameter, die nicht gelesen werden</translation>
    </message>
    <message>
        <source>&apos;]&apos; behind a keyword</source>
        <translation>&apos;]&apos; hinter einem Schlüsselwort</translation>
    </message>
    <message>
        <source>the references of all ports</source>
        <translation>die Bezugswiderstände aller Tore</translation>
    </message>
    <message>
        <source>expected single-ended data, found [Mixed-Mode Order]</source>
        <translation>erwartet: Daten gegen Masse, gefunden: [Mixed-Mode Order]</translation>
    </message>
    <message>
        <source>[%1] is not known and skipped</source>
        <translation>[%1] ist unbekannt und wird übergangen</translation>
    </message>
    <message>
        <source>one or two ports</source>
        <translation>ein oder zwei Tore</translation>
    </message>
    <message>
        <source>version 1 or 2</source>
        <translation>Version 1 oder 2</translation>
    </message>
    <message>
        <source>Full, Lower or Upper</source>
        <translation>Full, Lower oder Upper</translation>
    </message>
    <message>
        <source>a number of frequencies</source>
        <translation>eine Zahl von Frequenzen</translation>
    </message>
    <message>
        <source>12_21 or 21_12</source>
        <translation>12_21 oder 21_12</translation>
    </message>
    <message>
        <source>one resistance above 0 for each port</source>
        <translation>ein Widerstand über 0 für jedes Tor</translation>
    </message>
    <message>
        <source>expected an option line (# GHz S MA R 50) before [Network Data]</source>
        <translation>erwartet: eine Optionszeile (# GHz S MA R 50) vor [Network Data]</translation>
    </message>
    <message>
        <source>expected [Number of Ports] before [Network Data]</source>
        <translation>erwartet: [Number of Ports] vor [Network Data]</translation>
    </message>
    <message>
        <source>[Two-Port Data Order] is missing, 21_12 assumed</source>
        <translation>[Two-Port Data Order] fehlt, 21_12 angenommen</translation>
    </message>
    <message>
        <source>expected 3 numbers (one port) or 9 (two ports), found %1</source>
        <translation>erwartet: 3 Zahlen (ein Tor) oder 9 (zwei Tore), gefunden: %1</translation>
    </message>
    <message>
        <source>[Network Data] before the data</source>
        <translation>[Network Data] vor den Daten</translation>
    </message>
    <message>
        <source>a number with a decimal point</source>
        <translation>eine Zahl mit Dezimalpunkt</translation>
    </message>
    <message>
        <source>an option line (# GHz S MA R 50) or numbers</source>
        <translation>eine Optionszeile (# GHz S MA R 50) oder Zahlen</translation>
    </message>
    <message>
        <source>no option line, GHz S MA R 50 assumed</source>
        <translation>keine Optionszeile, GHz S MA R 50 angenommen</translation>
    </message>
    <message>
        <source>expected %1 numbers for a frequency, found %2</source>
        <translation>erwartet: %1 Zahlen für eine Frequenz, gefunden: %2</translation>
    </message>
    <message>
        <source>expected a frequency, found %1 Hz</source>
        <translation>erwartet: eine Frequenz, gefunden: %1 Hz</translation>
    </message>
    <message>
        <source>expected a frequency above %1 Hz, found %2 Hz: frequencies have to rise</source>
        <translation>erwartet: eine Frequenz über %1 Hz, gefunden: %2 Hz; Frequenzen müssen steigen</translation>
    </message>
    <message>
        <source>expected finite parameters</source>
        <translation>erwartet: endliche Parameter</translation>
    </message>
    <message>
        <source>expected %1 numbers, found %2</source>
        <translation>erwartet: %1 Zahlen, gefunden: %2</translation>
    </message>
    <message>
        <source>expected rows of data, the file has none</source>
        <translation>erwartet: Zeilen mit Daten, die Datei hat keine</translation>
    </message>
    <message>
        <source>[Number of Frequencies] says %1, there are %2</source>
        <translation>[Number of Frequencies] sagt %1, es sind %2</translation>
    </message>
    <message>
        <source>one frequency only: there is nothing between samples</source>
        <translation>nur eine Frequenz: Zwischen Stützstellen ist nichts</translation>
    </message>
    <message>
        <source>Round %1</source>
        <translation>%1 runden</translation>
    </message>
    <message>
        <source>Undo rounding of %1</source>
        <translation>Runden von %1 zurücknehmen</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 laden</translation>
    </message>
    <message>
        <source>Weight of %1</source>
        <translation>Gewicht von %1</translation>
    </message>
    <message>
        <source>These are no losses: %1</source>
        <translation>Das sind keine Verluste: %1</translation>
    </message>
    <message>
        <source>one part&apos;s only</source>
        <translation>nur die eines Bauteils</translation>
    </message>
    <message>
        <source>Expected percent, above 0 and below 100</source>
        <translation>Erwartet: Prozent, über 0 und unter 100</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no band: write 70M:130M</source>
        <translation>&quot;%1&quot; ist kein Band: Schreiben Sie 70M:130M</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not rise</source>
        <translation>&quot;%1&quot; steigt nicht an</translation>
    </message>
    <message>
        <source>The printer cannot be opened.</source>
        <translation>Der Drucker lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>The printer has failed.</source>
        <translation>Der Drucker ist gescheitert.</translation>
    </message>
    <message>
        <source>The expression is too long.</source>
        <translation>Der Ausdruck ist zu lang.</translation>
    </message>
    <message>
        <source>Unknown character in the expression.</source>
        <translation>Unbekanntes Zeichen im Ausdruck.</translation>
    </message>
    <message>
        <source>One expression at a time.</source>
        <translation>Nur ein Ausdruck auf einmal.</translation>
    </message>
    <message>
        <source>The result is not a finite number.</source>
        <translation>Das Ergebnis ist keine endliche Zahl.</translation>
    </message>
    <message>
        <source>Cannot read the expression.</source>
        <translation>Der Ausdruck ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The expression is not complete.</source>
        <translation>Der Ausdruck ist nicht vollständig.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>Eine schließende Klammer fehlt.</translation>
    </message>
    <message>
        <source>Unknown name &quot;%1&quot;.</source>
        <translation>Unbekannter Name &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Unknown name.</source>
        <translation>Unbekannter Name.</translation>
    </message>
    <message>
        <source>Too many arguments for &quot;%1&quot;.</source>
        <translation>Zu viele Argumente für &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Too many arguments.</source>
        <translation>Zu viele Argumente.</translation>
    </message>
    <message>
        <source>Too few arguments for &quot;%1&quot;.</source>
        <translation>Zu wenige Argumente für &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Too few arguments.</source>
        <translation>Zu wenige Argumente.</translation>
    </message>
    <message>
        <source>Does not belong here: &quot;%1&quot;.</source>
        <translation>Gehört nicht hierher: &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>A verb such as Undo, and the name of the step that it takes back</extracomment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Series L</source>
        <translation>L längs</translation>
    </message>
    <message>
        <source>Add an inductor in series</source>
        <translation>Eine Spule längs hinzufügen</translation>
    </message>
    <message>
        <source>Series C</source>
        <translation>C längs</translation>
    </message>
    <message>
        <source>Add a capacitor in series</source>
        <translation>Einen Kondensator längs hinzufügen</translation>
    </message>
    <message>
        <source>Shunt L</source>
        <translation>L quer</translation>
    </message>
    <message>
        <source>Add an inductor across the line</source>
        <translation>Eine Spule quer hinzufügen</translation>
    </message>
    <message>
        <source>Shunt C</source>
        <translation>C quer</translation>
    </message>
    <message>
        <source>Add a capacitor across the line</source>
        <translation>Einen Kondensator quer hinzufügen</translation>
    </message>
    <message>
        <source>Series R</source>
        <translation>R längs</translation>
    </message>
    <message>
        <source>Add a resistor in series</source>
        <translation>Einen Widerstand längs hinzufügen</translation>
    </message>
    <message>
        <source>Shunt R</source>
        <translation>R quer</translation>
    </message>
    <message>
        <source>Add a resistor across the line</source>
        <translation>Einen Widerstand quer hinzufügen</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>Add a line, a quarter wave long</source>
        <translation>Eine Leitung hinzufügen, eine Viertelwelle lang</translation>
    </message>
    <message>
        <source>Open stub</source>
        <translation>Offene Stichleitung</translation>
    </message>
    <message>
        <source>Add an open stub across the line</source>
        <translation>Eine offene Stichleitung quer hinzufügen</translation>
    </message>
    <message>
        <source>Shorted stub</source>
        <translation>Kurzgeschlossene Stichleitung</translation>
    </message>
    <message>
        <source>Add a shorted stub across the line</source>
        <translation>Eine kurzgeschlossene Stichleitung quer hinzufügen</translation>
    </message>
    <message>
        <source>Add an ideal transformer</source>
        <translation>Einen idealen Übertrager hinzufügen</translation>
    </message>
    <message>
        <source>Kelvro projects (*.kelvro)</source>
        <translation>Kelvro-Projekte (*.kelvro)</translation>
    </message>
    <message>
        <source>Inductors</source>
        <translation>Spulen</translation>
    </message>
    <message>
        <source>Capacitors</source>
        <translation>Kondensatoren</translation>
    </message>
    <message>
        <source>Traps</source>
        <translation>Fallen</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Leitungen</translation>
    </message>
    <message>
        <source>Stubs</source>
        <translation>Stubs</translation>
    </message>
    <message>
        <source>Transformers</source>
        <translation>Übertrager</translation>
    </message>
    <message>
        <source>continuous</source>
        <translation>stufenlos</translation>
    </message>
    <message>
        <source>%1 was written by a later version of Kelvro: what this one knows of it is shown, and can be saved under another name</source>
        <translation>%1 wurde von einer neueren Version von Kelvro geschrieben: Gezeigt wird, was diese davon kennt; sichern lässt es sich unter einem anderen Namen</translation>
    </message>
    <message>
        <source>%1 was written by a later version of Kelvro and stays as it is: save under another name</source>
        <translation>%1 wurde von einer neueren Version von Kelvro geschrieben und bleibt, wie es ist: Sichern Sie unter einem anderen Namen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was written by a later version of Kelvro. What this one knows of it is taken over; the file itself stays as it is.</source>
        <translation>&quot;%1&quot; wurde von einer neueren Version von Kelvro geschrieben. Was diese davon kennt, wird übernommen; die Datei selbst bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>it was written by a later version of Kelvro</source>
        <translation>sie wurde von einer neueren Version von Kelvro geschrieben</translation>
    </message>
    <message>
        <source>they are nested deeper than %1</source>
        <translation>sie sind tiefer als %1 verschachtelt</translation>
    </message>
    <message>
        <source>its lists</source>
        <translation>seine Listen</translation>
    </message>
    <message>
        <source>its numbers</source>
        <translation>seine Zahlen</translation>
    </message>
    <message>
        <source>one is larger than any number can be</source>
        <translation>eine ist größer, als eine Zahl sein kann</translation>
    </message>
    <message>
        <source>A picture has from 1 to %1 pixels a side</source>
        <translation>Ein Bild hat 1 bis %1 Pixel je Seite</translation>
    </message>
    <message>
        <source>The picture cannot be written as %1</source>
        <translation>Das Bild lässt sich nicht als %1 schreiben</translation>
    </message>
    <message>
        <source>Not enough memory for the picture</source>
        <translation>Nicht genug Speicher für das Bild</translation>
    </message>
    <message>
        <source>The picture cannot be drawn</source>
        <translation>Das Bild lässt sich nicht zeichnen</translation>
    </message>
    <message>
        <source>The GIF picture cannot be written</source>
        <translation>Das GIF-Bild lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>GIF pictures have at most %1 pixels a side</source>
        <translation>GIF-Bilder haben höchstens %1 Pixel je Seite</translation>
    </message>
    <message>
        <source>Voltage across the switch</source>
        <translation>Spannung am Schalter</translation>
    </message>
    <message>
        <source>Currents</source>
        <translation>Ströme</translation>
    </message>
    <message>
        <source>Switch :</source>
        <translation>Schalter :</translation>
    </message>
    <message>
        <source>Load :</source>
        <translation>Last :</translation>
    </message>
    <message>
        <source>%1 loads stable inside</source>
        <translation>%1 Lasten stabil innen</translation>
    </message>
    <message>
        <source>%1 loads stable outside</source>
        <translation>%1 Lasten stabil außen</translation>
    </message>
    <message>
        <source>%1 sources stable inside</source>
        <translation>%1 Quellen stabil innen</translation>
    </message>
    <message>
        <source>%1 sources stable outside</source>
        <translation>%1 Quellen stabil außen</translation>
    </message>
    <message>
        <source>Gradient vs Iteration</source>
        <translation>Gradient über Iteration</translation>
    </message>
    <message>
        <source>Function f-fmin vs Iteration</source>
        <translation>Funktion f-fmin über Iteration</translation>
    </message>
    <message>
        <source>Parameter changes xi-xi+1 vs Iteration</source>
        <translation>Parameter xi-xi+1 über Iteration</translation>
    </message>
    <message>
        <source>Parameter changes x-xfinal vs Iteration</source>
        <translation>Parameter x-xEnd über Iteration</translation>
    </message>
    <message>
        <source>Function Calls vs Iteration</source>
        <translation>Funktionsaufrufe über Iteration</translation>
    </message>
    <message>
        <source>Stepsize t vs Iteration</source>
        <translation>Schrittweite t über Iteration</translation>
    </message>
    <message>
        <source>Normalized Parameters vs Iteration</source>
        <translation>Normierte Parameter über Iteration</translation>
    </message>
    <message>
        <source>Iteration</source>
        <translation>Iteration</translation>
    </message>
    <message>
        <source>calls</source>
        <translation>Aufrufe</translation>
    </message>
    <message>
        <source>value/start</source>
        <translation>Wert/Anfang</translation>
    </message>
    <message>
        <source>below the plot</source>
        <translation>unterhalb des Bildes</translation>
    </message>
    <message>
        <source>above the plot</source>
        <translation>oberhalb des Bildes</translation>
    </message>
    <message>
        <source>%1dB: %2 to %3, width %4, loaded Q %5</source>
        <translation>%1dB: %2 bis %3, Breite %4, Betriebsgüte %5</translation>
    </message>
    <message>
        <source>%1dB: %2 to %3</source>
        <translation>%1dB: %2 bis %3</translation>
    </message>
    <message>
        <source>limit of lossless networks, estimated</source>
        <translation>Grenze verlustloser Netzwerke, geschätzt</translation>
    </message>
    <message>
        <source>no lossless network does better</source>
        <translation>kein verlustloses Netzwerk ist besser</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
    <message>
        <source>no valid design</source>
        <translation>kein gültiger Entwurf</translation>
    </message>
    <message>
        <source>no frequency response</source>
        <translation>kein Frequenzgang</translation>
    </message>
    <message>
        <source>Harmonics of fo :</source>
        <translation>Harmonische von fo :</translation>
    </message>
    <message>
        <source>Position : %1</source>
        <translation>Stelle : %1</translation>
    </message>
    <message>
        <source>all runs :</source>
        <translation>alle Läufe :</translation>
    </message>
    <message>
        <source>90 % of them :</source>
        <translation>90 % davon :</translation>
    </message>
    <message>
        <source>median :</source>
        <translation>Median :</translation>
    </message>
    <message>
        <source>Monte Carlo, %1 run :</source>
        <translation>Monte Carlo, %1 Lauf :</translation>
    </message>
    <message>
        <source>Monte Carlo, %1 runs :</source>
        <translation>Monte Carlo, %1 Läufe :</translation>
    </message>
    <message>
        <source>gain :</source>
        <translation>Verstärkung :</translation>
    </message>
    <message>
        <source>reflection :</source>
        <translation>Reflexion :</translation>
    </message>
    <message>
        <source>now</source>
        <translation>jetzt</translation>
    </message>
    <message>
        <source>ghost</source>
        <translation>Geist</translation>
    </message>
    <message>
        <source>%1 :</source>
        <translation>%1 :</translation>
    </message>
    <message>
        <source>centre: %1 Ω, power waves</source>
        <translation>Mitte: %1 Ω, Leistungswellen</translation>
    </message>
    <message>
        <source>centre: %1 Ω</source>
        <translation>Mitte: %1 Ω</translation>
    </message>
    <message>
        <source>expected a number above 0</source>
        <translation>erwartet: eine Zahl über 0</translation>
    </message>
    <message>
        <source>expected dB below 0</source>
        <translation>erwartet: dB unter 0</translation>
    </message>
    <message>
        <source>%1 has no data: its file is missing</source>
        <translation>%1 hat keine Daten: Die Datei fehlt</translation>
    </message>
    <message>
        <source>%1 has %2 ports, not %3</source>
        <translation>%1 hat %2 Tore, nicht %3</translation>
    </message>
    <message>
        <source>expected one of %1</source>
        <translation>erwartet: eines von %1</translation>
    </message>
    <message>
        <source>an object with a network</source>
        <translation>ein Objekt mit einem network</translation>
    </message>
    <message>
        <source>a list of what is locked</source>
        <translation>eine Liste des Festgehaltenen</translation>
    </message>
    <message>
        <source>expected an object with element</source>
        <translation>erwartet: ein Objekt mit element</translation>
    </message>
    <message>
        <source>expected the numbers of element and part</source>
        <translation>erwartet: die Nummern von element und part</translation>
    </message>
    <message>
        <source>a list of frequencies</source>
        <translation>eine Liste von Frequenzen</translation>
    </message>
    <message>
        <source>expected frequencies above 0</source>
        <translation>erwartet: Frequenzen über 0</translation>
    </message>
    <message>
        <source>expected linear, polar or cubic</source>
        <translation>erwartet: linear, polar oder cubic</translation>
    </message>
    <message>
        <source>-3 dB width %1 (%2 to %3) with a dip of %4 dB at %5, loaded Q %6, not the %7 of B</source>
        <translation>-3-dB-Bandbreite %1 (%2 bis %3) mit einem Einbruch von %4 dB bei %5, Betriebsgüte %6, nicht die %7 von B</translation>
    </message>
    <message>
        <source>-3 dB width %1 (%2 to %3) with a dip of %4 dB at %5, loaded Q %6</source>
        <translation>-3-dB-Bandbreite %1 (%2 bis %3) mit einem Einbruch von %4 dB bei %5, Betriebsgüte %6</translation>
    </message>
    <message>
        <source>Element Q (%1)</source>
        <translation>Bauteilgüte Q (%1)</translation>
    </message>
    <message>
        <source>%1 was changed by another program meanwhile and stays as it is</source>
        <translation>%1 wurde inzwischen von einem anderen Programm geändert und bleibt, wie es ist</translation>
    </message>
    <message>
        <source>infinite</source>
        <translation>unendlich</translation>
    </message>
</context>
<context>
    <name>kelvro::AxisLimitsDialog</name>
    <message>
        <source>Axis Limits</source>
        <translation>Achsengrenzen</translation>
    </message>
    <message>
        <source>x m&amp;in</source>
        <translation>x m&amp;in</translation>
    </message>
    <message>
        <source>x m&amp;ax</source>
        <translation>x m&amp;ax</translation>
    </message>
    <message>
        <source>&amp;Logarithmic</source>
        <translation>&amp;Logarithmisch</translation>
    </message>
    <message>
        <source>Equal ratios of frequency are equally long</source>
        <translation>Gleiche Frequenzverhältnisse sind gleich lang</translation>
    </message>
    <message>
        <source> &amp;min</source>
        <translation> &amp;min</translation>
    </message>
    <message>
        <source> ma&amp;x</source>
        <translation> ma&amp;x</translation>
    </message>
    <message>
        <source> mi&amp;n</source>
        <translation> mi&amp;n</translation>
    </message>
    <message>
        <source> max</source>
        <translation> max</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source> in %1</source>
        <translation> in %1</translation>
    </message>
    <message>
        <source>min has to be below max</source>
        <translation>min muss unter max liegen</translation>
    </message>
    <message>
        <source>a logarithmic axis starts above 0</source>
        <translation>eine logarithmische Achse beginnt über 0</translation>
    </message>
</context>
<context>
    <name>kelvro::CentreDialog</name>
    <message>
        <source>yield %1 % (%2 to %3), 90 % of the builds keep %4</source>
        <translation>Ausbeute %1 % (%2 bis %3), 90 % der Exemplare halten %4</translation>
    </message>
    <message>
        <source>Yield and centring</source>
        <translation>Ausbeute und Zentrierung</translation>
    </message>
    <message>
        <source>&amp;Inductors ±%</source>
        <translation>&amp;Spulen ±%</translation>
    </message>
    <message>
        <source>Ca&amp;pacitors ±%</source>
        <translation>&amp;Kondensatoren ±%</translation>
    </message>
    <message>
        <source>&amp;Resistors ±%</source>
        <translation>&amp;Widerstände ±%</translation>
    </message>
    <message>
        <source>Line impedances ±%</source>
        <translation>Wellenwiderstände ±%</translation>
    </message>
    <message>
        <source>Largest error of a part, percent</source>
        <translation>Größter Fehler eines Bauteils in Prozent</translation>
    </message>
    <message>
        <source>A build &amp;keeps dB</source>
        <translation>Ein Exemplar &amp;hält dB</translation>
    </message>
    <message>
        <source>Worst gain in the bands that a build has to keep to count as good</source>
        <translation>Schlechteste Verstärkung in den Bändern, die ein Exemplar halten muss, um als gut zu zählen</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Bauteil</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>± %</source>
        <translation>± %</translation>
    </message>
    <message>
        <source>Costs dB</source>
        <translation>Kostet dB</translation>
    </message>
    <message>
        <source>Centred dB</source>
        <translation>Zentriert dB</translation>
    </message>
    <message>
        <source>Worst gain lost when this part alone is off by its tolerance, its own or that of its kind: the dearest part first</source>
        <translation>Verlust an schlechtester Verstärkung, wenn nur dieses Bauteil um seine Toleranz abweicht, die eigene oder die seiner Art: das teuerste Bauteil zuerst</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>&amp;Zentrieren</translation>
    </message>
    <message>
        <source>Centring</source>
        <translation>Zentrierung</translation>
    </message>
    <message>
        <source>%1: expected percent from %2 to %3</source>
        <translation>%1: erwartet: Prozent von %2 bis %3</translation>
    </message>
    <message>
        <source>%1: expected dB below 0</source>
        <translation>%1: erwartet: dB unter 0</translation>
    </message>
    <message>
        <source>Now: %1</source>
        <translation>Jetzt: %1</translation>
    </message>
    <message>
        <source>Centred: %1</source>
        <translation>Zentriert: %1</translation>
    </message>
    <message>
        <source>No other values are better in the middle</source>
        <translation>Keine anderen Werte liegen besser in der Mitte</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
</context>
<context>
    <name>kelvro::CircuitView</name>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Save Picture...</source>
        <translation>Bild &amp;sichern...</translation>
    </message>
</context>
<context>
    <name>kelvro::ElementTile</name>
    <message>
        <source>%1: drag it onto an element to replace that, beside one to add it there; a click adds it behind the chosen element</source>
        <translation>%1: auf ein Element ziehen ersetzt es, neben eines ziehen fügt es dort ein; ein Klick fügt es hinter dem gewählten Element ein</translation>
    </message>
</context>
<context>
    <name>kelvro::ExportWindow</name>
    <message>
        <source>Form in which the circuit leaves the program</source>
        <translation>Form, in der die Schaltung das Programm verlässt</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>&amp;Format</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>First frequency</source>
        <translation>Erste Frequenz</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Last frequency</source>
        <translation>Letzte Frequenz</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Number of frequencies</source>
        <translation>Zahl der Frequenzen</translation>
    </message>
    <message>
        <source>Reference Z0</source>
        <translation>Bezug Z0</translation>
    </message>
    <message>
        <source>Reference resistance of both ports</source>
        <translation>Bezugswiderstand beider Tore</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy to the clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Sichern...</translation>
    </message>
    <message>
        <source>Save to a file</source>
        <translation>In eine Datei sichern</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Das Fenster schließen</translation>
    </message>
    <message>
        <source>... (Copy and Save take all of it)</source>
        <translation>... (Kopieren und Sichern nehmen alles)</translation>
    </message>
    <message>
        <source>Copied to the clipboard.</source>
        <translation>In die Zwischenablage kopiert.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gesichert als %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
</context>
<context>
    <name>kelvro::FindDialog</name>
    <message>
        <source>nothing: a straight connection</source>
        <translation>nichts: eine direkte Verbindung</translation>
    </message>
    <message>
        <source>Find networks</source>
        <translation>Netzwerke finden</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Finden</translation>
    </message>
    <message>
        <source>Start the search, or end it with what it has found</source>
        <translation>Die Suche beginnen oder mit dem Gefundenen beenden</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>Put the chosen network into the window</source>
        <translation>Das gewählte Netzwerk ins Fenster übernehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close; the network stays as it was</source>
        <translation>Schließen; das Netzwerk bleibt, wie es war</translation>
    </message>
    <message>
        <source>From %1
to %2</source>
        <translation>Von %1
nach %2</translation>
    </message>
    <message>
        <source>&amp;Bands</source>
        <translation>&amp;Bänder</translation>
    </message>
    <message>
        <source>Where the networks have to work: 70M:130M, 400M:410M</source>
        <translation>Wo die Netzwerke arbeiten sollen: 70M:130M, 400M:410M</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>GT</source>
        <translation>GT</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Teile</translation>
    </message>
    <message>
        <source>Worst/dB</source>
        <translation>Schlechtestes/dB</translation>
    </message>
    <message>
        <source>Mean/dB</source>
        <translation>Mittel/dB</translation>
    </message>
    <message>
        <source>Yield</source>
        <translation>Ausbeute</translation>
    </message>
    <message>
        <source>Standard/dB</source>
        <translation>Normwerte/dB</translation>
    </message>
    <message>
        <source>From source to load</source>
        <translation>Von der Quelle zur Last</translation>
    </message>
    <message>
        <source>A star: no network with fewer parts is as good. Arrow keys show a network in chart and plots, Enter takes it</source>
        <translation>Stern: Kein Netzwerk mit weniger Bauteilen ist so gut. Pfeiltasten zeigen ein Netzwerk in Diagramm und Bildern, Enter übernimmt es</translation>
    </message>
    <message>
        <source>%1 parts</source>
        <translation>%1 Bauteile</translation>
    </message>
    <message>
        <source>Builds that keep %1 dB</source>
        <translation>Exemplare, die %1 dB halten</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Stopped: the best so far</source>
        <translation>Angehalten: die besten bisher</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>An&amp;halten</translation>
    </message>
</context>
<context>
    <name>kelvro::FoldedViews</name>
    <message>
        <source>A higher window shows all of these</source>
        <translation>In einem höheren Fenster sind alle zu sehen</translation>
    </message>
</context>
<context>
    <name>kelvro::LadderPanel</name>
    <message>
        <source>Elements from source to load</source>
        <translation>Elemente von der Quelle zur Last</translation>
    </message>
    <message>
        <source>Elements from source to load; type to change one, Del deletes, Ctrl+Up and Ctrl+Down move, the right button offers more</source>
        <translation>Elemente von der Quelle zur Last; Tippen ändert eines, Entf löscht, Strg+Auf und Strg+Ab verschieben, die rechte Taste bietet mehr</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Add an element behind the chosen one, towards the load</source>
        <translation>Ein Element hinter dem gewählten hinzufügen, zur Last hin</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Move towards the source (Ctrl+Up)</source>
        <translation>Zur Quelle hin verschieben (Strg+Auf)</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Move towards the load (Ctrl+Down)</source>
        <translation>Zur Last hin verschieben (Strg+Ab)</translation>
    </message>
    <message>
        <source>Edit element %1</source>
        <translation>Element %1 bearbeiten</translation>
    </message>
    <message>
        <source>Move element</source>
        <translation>Element verschieben</translation>
    </message>
    <message>
        <source>Add element</source>
        <translation>Element hinzufügen</translation>
    </message>
    <message>
        <source>Delete element</source>
        <translation>Element löschen</translation>
    </message>
    <message>
        <source>Put &amp;across</source>
        <translation>&amp;Quer legen</translation>
    </message>
    <message>
        <source>Put in &amp;series</source>
        <translation>&amp;Längs legen</translation>
    </message>
    <message>
        <source>Place of element %1</source>
        <translation>Platz von Element %1</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Locked for refining</source>
        <translation>Beim Verfeinern &amp;fest</translation>
    </message>
    <message>
        <source>&amp;Tolerance…</source>
        <translation>&amp;Toleranz…</translation>
    </message>
    <message>
        <source>&amp;Nearest standard value</source>
        <translation>&amp;Nächster Normwert</translation>
    </message>
    <message>
        <source>Standard value &amp;above</source>
        <translation>Normwert &amp;darüber</translation>
    </message>
    <message>
        <source>Standard value &amp;below</source>
        <translation>Normwert d&amp;arunter</translation>
    </message>
    <message>
        <source>Make it %1</source>
        <translation>Auf %1 setzen</translation>
    </message>
    <message>
        <source>Kind of part</source>
        <translation>Art des Bauteils</translation>
    </message>
    <message>
        <source>&amp;Losses…</source>
        <translation>&amp;Verluste…</translation>
    </message>
    <message>
        <source>Losses of %1</source>
        <translation>Verluste von %1</translation>
    </message>
    <message>
        <source>Q at a frequency, series resistance, self-resonance; empty for none:
Q=40@100M, law=f, ESR=0.1, SRF=3G</source>
        <translation>Q bei einer Frequenz, Serienwiderstand, Eigenresonanz; leer für keine:
Q=40@100M, law=f, ESR=0.1, SRF=3G</translation>
    </message>
    <message>
        <source>Losses of part</source>
        <translation>Verluste des Bauteils</translation>
    </message>
    <message>
        <source>Tolerance of %1</source>
        <translation>Toleranz von %1</translation>
    </message>
    <message>
        <source>± percent; empty: as all of its kind have it in Yield and Centring</source>
        <translation>± Prozent; leer: wie alle seiner Art unter Ausbeute und Zentrierung</translation>
    </message>
    <message>
        <source>Delete the chosen element (Del), or the one that is dropped here</source>
        <translation>Das gewählte Element löschen (Entf), oder das hier abgelegte</translation>
    </message>
    <message>
        <source>Swap elements %1 and %2</source>
        <translation>Elemente %1 und %2 tauschen</translation>
    </message>
    <message>
        <source>Replace element %1 by a copy of %2</source>
        <translation>Element %1 durch eine Kopie von %2 ersetzen</translation>
    </message>
    <message>
        <source>Replace element %1 by %2</source>
        <translation>Element %1 durch %2 ersetzen</translation>
    </message>
</context>
<context>
    <name>kelvro::LadderPicture</name>
    <message>
        <source>Circuit from source to load</source>
        <translation>Schaltung von der Quelle zur Last</translation>
    </message>
    <message>
        <source>Drag an element between others to move it, onto another to swap them, onto Delete to remove it; with Ctrl a copy. A kind dragged here from above replaces the element it is dropped onto. The right button offers more</source>
        <translation>Ein Element zwischen andere ziehen verschiebt es, auf ein anderes tauscht beide, auf Löschen entfernt es; mit Strg eine Kopie. Eine von oben hierher gezogene Art ersetzt das Element, auf das sie fällt. Die rechte Taste bietet mehr</translation>
    </message>
</context>
<context>
    <name>kelvro::LimitWatch</name>
    <message>
        <source>No limit: %1</source>
        <translation>Keine Grenze: %1</translation>
    </message>
</context>
<context>
    <name>kelvro::MarkerPanel</name>
    <message>
        <source>Markers</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Markers on the curve, and what lies between each and the first</source>
        <translation>Marken auf der Kurve, und was zwischen jeder und der ersten liegt</translation>
    </message>
</context>
<context>
    <name>kelvro::MatchDialog</name>
    <message>
        <source>Match at %1</source>
        <translation>Anpassen bei %1</translation>
    </message>
    <message>
        <source>L sections</source>
        <translation>L-Glieder</translation>
    </message>
    <message>
        <source>Pi sections</source>
        <translation>Pi-Glieder</translation>
    </message>
    <message>
        <source>T sections</source>
        <translation>T-Glieder</translation>
    </message>
    <message>
        <source>Shape of the networks</source>
        <translation>Form der Netzwerke</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>Loaded Q of the pi or T; empty: twice the lowest</source>
        <translation>Betriebsgüte des Pi oder T; leer: das Doppelte der kleinsten</translation>
    </message>
    <message>
        <source>&amp;Q</source>
        <translation>&amp;Q</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>nothing: source and load match as they are</source>
        <translation>nichts: Quelle und Last passen, wie sie sind</translation>
    </message>
</context>
<context>
    <name>kelvro::NetworkExportWindow</name>
    <message>
        <source>Export - Network</source>
        <translation>Export - Netzwerk</translation>
    </message>
</context>
<context>
    <name>kelvro::NetworkModel</name>
    <message>
        <source>Snapshot %1</source>
        <translation>Schnappschuss %1</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 zeigen</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>%1 verbergen</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Freeze as ghost</source>
        <translation>Als Geist einfrieren</translation>
    </message>
    <message>
        <source>Remove ghost</source>
        <translation>Geist entfernen</translation>
    </message>
    <message>
        <source>Lock %1</source>
        <translation>%1 festhalten</translation>
    </message>
    <message>
        <source>Unlock %1</source>
        <translation>%1 freigeben</translation>
    </message>
    <message>
        <source>Add marker</source>
        <translation>Marke setzen</translation>
    </message>
    <message>
        <source>Remove marker</source>
        <translation>Marke entfernen</translation>
    </message>
</context>
<context>
    <name>kelvro::NetworkWindow</name>
    <message>
        <source>So&amp;urce</source>
        <translation>&amp;Quelle</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>&amp;Last</translation>
    </message>
    <message>
        <source>Frequency of the path on the chart and of Match here; empty: the middle of the bands</source>
        <translation>Frequenz des Weges im Diagramm und von Hier anpassen; leer: die Mitte der Bänder</translation>
    </message>
    <message>
        <source>Where the network has to work: 70M:130M, 400M:410M</source>
        <translation>Wo das Netzwerk arbeiten soll: 70M:130M, 400M:410M</translation>
    </message>
    <message>
        <source>Fre&amp;quency</source>
        <translation>Fre&amp;quenz</translation>
    </message>
    <message>
        <source>&amp;Bands</source>
        <translation>&amp;Bänder</translation>
    </message>
    <message>
        <source>Co&amp;ils</source>
        <translation>S&amp;pulen</translation>
    </message>
    <message>
        <source>&amp;Capacitors</source>
        <translation>&amp;Kondensatoren</translation>
    </message>
    <message>
        <source>Sliders</source>
        <translation>Schieber</translation>
    </message>
    <message>
        <source>Snapshots</source>
        <translation>Schnappschüsse</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Example: Whip on a Car</source>
        <translation>&amp;Beispiel: Antenne auf einem Auto</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Sichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save &amp;Picture…</source>
        <translation>&amp;Bild sichern…</translation>
    </message>
    <message>
        <source>Prin&amp;t…</source>
        <translation>&amp;Drucken…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Copy &amp;Picture</source>
        <translation>&amp;Bild kopieren</translation>
    </message>
    <message>
        <source>Copy as &amp;Command Line</source>
        <translation>Als &amp;Befehlszeile kopieren</translation>
    </message>
    <message>
        <source>&amp;Network</source>
        <translation>&amp;Netzwerk</translation>
    </message>
    <message>
        <source>&amp;Match Here…</source>
        <translation>&amp;Hier anpassen…</translation>
    </message>
    <message>
        <source>&amp;Refine</source>
        <translation>&amp;Verfeinern</translation>
    </message>
    <message>
        <source>Take &amp;Snapshot</source>
        <translation>&amp;Schnappschuss</translation>
    </message>
    <message>
        <source>&amp;Freeze as Ghost</source>
        <translation>Als &amp;Geist einfrieren</translation>
    </message>
    <message>
        <source>Remove &amp;Ghost</source>
        <translation>Geist &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Impedance Grid</source>
        <translation>&amp;Impedanzgitter</translation>
    </message>
    <message>
        <source>&amp;Admittance Grid</source>
        <translation>&amp;Admittanzgitter</translation>
    </message>
    <message>
        <source>&amp;Dark Chart</source>
        <translation>&amp;Dunkles Diagramm</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>Ein&amp;passen</translation>
    </message>
    <message>
        <source>&amp;VSWR Circles…</source>
        <translation>&amp;VSWR-Kreise…</translation>
    </message>
    <message>
        <source>VSWR circles</source>
        <translation>VSWR-Kreise</translation>
    </message>
    <message>
        <source>VSWR values:</source>
        <translation>VSWR-Werte:</translation>
    </message>
    <message>
        <source>Constant &amp;Q…</source>
        <translation>Konstantes &amp;Q…</translation>
    </message>
    <message>
        <source>Constant Q</source>
        <translation>Konstantes Q</translation>
    </message>
    <message>
        <source>Q values:</source>
        <translation>Q-Werte:</translation>
    </message>
    <message>
        <source>The ladder has no two-port file at this frequency</source>
        <translation>Die Kette enthält bei dieser Frequenz keine Zweitordatei</translation>
    </message>
    <message>
        <source>Stability and Gain of &amp;Loads</source>
        <translation>Stabilität und Verstärkung der &amp;Lasten</translation>
    </message>
    <message>
        <source>Stability and Gain of S&amp;ources</source>
        <translation>Stabilität und Verstärkung der Q&amp;uellen</translation>
    </message>
    <message>
        <source>untitled</source>
        <translation>ohne Namen</translation>
    </message>
    <message>
        <source> - Network - Kelvro</source>
        <translation> - Netzwerk - Kelvro</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Bands</source>
        <translation>Bänder</translation>
    </message>
    <message>
        <source>Measured &amp;Data</source>
        <translation>Mess&amp;daten</translation>
    </message>
    <message>
        <source>none in this network</source>
        <translation>keine vorhanden</translation>
    </message>
    <message>
        <source>&amp;Embedded in the Project</source>
        <translation>Ins Projekt &amp;eingebettet</translation>
    </message>
    <message>
        <source>Embed %1</source>
        <translation>%1 einbetten</translation>
    </message>
    <message>
        <source>&amp;Linked to %1…</source>
        <translation>&amp;Verknüpft mit %1…</translation>
    </message>
    <message>
        <source>&amp;Linked to a File…</source>
        <translation>Mit einer Datei &amp;verknüpft…</translation>
    </message>
    <message>
        <source>Between samples</source>
        <translation>Zwischen Stützstellen</translation>
    </message>
    <message>
        <source>&amp;Straight</source>
        <translation>&amp;Gerade</translation>
    </message>
    <message>
        <source>&amp;Polar</source>
        <translation>&amp;Polar</translation>
    </message>
    <message>
        <source>&amp;Cubic</source>
        <translation>&amp;Kubisch</translation>
    </message>
    <message>
        <source>Interpolation of %1</source>
        <translation>Interpolation von %1</translation>
    </message>
    <message>
        <source>Link to a file</source>
        <translation>Mit einer Datei verknüpfen</translation>
    </message>
    <message>
        <source>Touchstone files (*.s1p *.s2p *.S1P *.S2P *.ts)</source>
        <translation>Touchstone-Dateien (*.s1p *.s2p *.S1P *.S2P *.ts)</translation>
    </message>
    <message>
        <source>%1 has %2 ports, %3 has %4</source>
        <translation>%1 hat %2 Tore, %3 hat %4</translation>
    </message>
    <message>
        <source>Link %1</source>
        <translation>%1 verknüpfen</translation>
    </message>
    <message>
        <source>The project will name %1</source>
        <translation>Das Projekt wird %1 nennen</translation>
    </message>
    <message>
        <source>The data are now those of %1</source>
        <translation>Die Daten sind jetzt die von %1</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>Projekt sichern</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>The network has changed since it was saved.</source>
        <translation>Das Netzwerk hat sich geändert, seit es gesichert wurde.</translation>
    </message>
    <message>
        <source>none yet</source>
        <translation>noch keine</translation>
    </message>
    <message>
        <source>The program ended before a network was saved. Take it up again?</source>
        <translation>Das Programm endete, bevor ein Netzwerk gesichert war. Soll es wieder aufgenommen werden?</translation>
    </message>
    <message>
        <source>Take up the network of before</source>
        <translation>Voriges Netzwerk wieder aufnehmen</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>Match here</source>
        <translation>Hier anpassen</translation>
    </message>
    <message>
        <source>Refine</source>
        <translation>Verfeinern</translation>
    </message>
    <message>
        <source>Worst GT %1 dB, was %2 dB</source>
        <translation>Schlechtestes GT %1 dB, vorher %2 dB</translation>
    </message>
    <message>
        <source>Picture copied</source>
        <translation>Bild kopiert</translation>
    </message>
    <message>
        <source>The measured data stand in no file that a shell could read. Save the project first; the command line then names it.</source>
        <translation>Die Messdaten stehen in keiner Datei, die eine Shell lesen könnte. Sichern Sie zuerst das Projekt; die Befehlszeile nennt es dann.</translation>
    </message>
    <message>
        <source>Command line copied</source>
        <translation>Befehlszeile kopiert</translation>
    </message>
    <message>
        <source>&amp;Find Networks…</source>
        <translation>Netzwerke &amp;finden…</translation>
    </message>
    <message>
        <source>Standard &amp;Values…</source>
        <translation>&amp;Normwerte…</translation>
    </message>
    <message>
        <source>Yield and &amp;Centring…</source>
        <translation>Ausbeute und &amp;Zentrierung…</translation>
    </message>
    <message>
        <source>Show &amp;Limit</source>
        <translation>&amp;Grenze zeigen</translation>
    </message>
    <message>
        <source>Named variants beside the present network; ticked ones are drawn</source>
        <translation>Benannte Varianten neben dem gegenwärtigen Netzwerk; angehakte werden gezeichnet</translation>
    </message>
    <message>
        <source>&amp;Take snapshot</source>
        <translation>S&amp;chnappschuss</translation>
    </message>
    <message>
        <source>Keep the present network under a name</source>
        <translation>Das gegenwärtige Netzwerk unter einem Namen behalten</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Zurückholen</translation>
    </message>
    <message>
        <source>Make the chosen snapshot the present network</source>
        <translation>Den gewählten Schnappschuss zum gegenwärtigen Netzwerk machen</translation>
    </message>
    <message>
        <source>Restore %1</source>
        <translation>%1 zurückholen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Forget the chosen snapshot</source>
        <translation>Den gewählten Schnappschuss vergessen</translation>
    </message>
    <message>
        <source>Variant %1</source>
        <translation>Variante %1</translation>
    </message>
    <message>
        <source>now</source>
        <translation>jetzt</translation>
    </message>
    <message>
        <source>Variant</source>
        <translation>Variante</translation>
    </message>
    <message>
        <source>Worst GT</source>
        <translation>Schlechtestes GT</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Element %1</source>
        <translation>Element %1</translation>
    </message>
    <message>
        <source> dB</source>
        <translation> dB</translation>
    </message>
    <message>
        <source>no bands</source>
        <translation>keine Bänder</translation>
    </message>
    <message>
        <source> (read-only)</source>
        <translation> (nur lesbar)</translation>
    </message>
    <message>
        <source>, which is not the file it was</source>
        <translation>, nicht mehr dieselbe Datei</translation>
    </message>
    <message>
        <source>The network is shown without these data. Saving the project loses nothing of what it says of them.</source>
        <translation>Das Netzwerk wird ohne diese Daten gezeigt. Beim Sichern des Projekts geht nichts verloren, was es darüber sagt.</translation>
    </message>
    <message>
        <source>The network is shown with the data that are there now.</source>
        <translation>Das Netzwerk wird mit den jetzt vorhandenen Daten gezeigt.</translation>
    </message>
    <message>
        <source>Measured data</source>
        <translation>Messdaten</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>&amp;Go On</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>&amp;Locate…</source>
        <translation>&amp;Suchen…</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
</context>
<context>
    <name>kelvro::PagePanel</name>
    <message>
        <source>Open as Network</source>
        <translation>Als Netzwerk</translation>
    </message>
    <message>
        <source>Take this circuit over into the Network window, to tune it there</source>
        <translation>Diese Schaltung ins Netzwerkfenster übernehmen, um sie dort abzustimmen</translation>
    </message>
    <message>
        <source>Find Better…</source>
        <translation>Besseres finden…</translation>
    </message>
    <message>
        <source>Search for networks that match R1 to R2 better over the band fo/Q</source>
        <translation>Netzwerke suchen, die R1 über das Band fo/Q besser an R2 anpassen</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>L &lt;--&gt; C</source>
        <translation>L &lt;--&gt; C</translation>
    </message>
    <message>
        <source>Change inductance and capacitances and vice versa</source>
        <translation>Induktivitäten und Kapazitäten vertauschen</translation>
    </message>
    <message>
        <source>Circuit</source>
        <translation>Schaltung</translation>
    </message>
    <message>
        <source>Waves</source>
        <translation>Verläufe</translation>
    </message>
    <message>
        <source>Element</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Elements from source to load. </source>
        <translation>Elemente von der Quelle zur Last. </translation>
    </message>
    <message>
        <source>A click on a part leads to its field; the context menu copies and saves</source>
        <translation>Ein Klick auf ein Bauteil führt zu seinem Feld; das Kontextmenü kopiert und sichert</translation>
    </message>
    <message>
        <source>Transfer function, G[1] = 1/R1, G[2] = 1/R2</source>
        <translation>Übertragungsfunktion, G[1] = 1/R1, G[2] = 1/R2</translation>
    </message>
</context>
<context>
    <name>kelvro::PartLossesEdit</name>
    <message>
        <source>Losses of all of them: Q=200@27M, law=f, ESR=0.1, SRF=3G; empty for none. Single ones by the right button on the ladder</source>
        <translation>Verluste von allen: Q=200@27M, law=f, ESR=0.1, SRF=3G; leer für keine. Einzelne mit der rechten Taste auf der Kette</translation>
    </message>
    <message>
        <source>Losses of coils</source>
        <translation>Verluste der Spulen</translation>
    </message>
    <message>
        <source>Losses of capacitors</source>
        <translation>Verluste der Kondensatoren</translation>
    </message>
    <message>
        <source>none in this network</source>
        <translation>keine vorhanden</translation>
    </message>
    <message>
        <source>they differ</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>lossless</source>
        <translation>verlustlos</translation>
    </message>
</context>
<context>
    <name>kelvro::PlotForm</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Runs whose gain at fo is at most 1 dB below the nominal one</source>
        <translation>Läufe, deren Verstärkung bei fo höchstens 1 dB unter der nominalen liegt</translation>
    </message>
    <message>
        <source>More than %1 markers would hide the curve.</source>
        <translation>Mehr als %1 Marken würden die Kurve verdecken.</translation>
    </message>
    <message>
        <source>Hold Curve</source>
        <translation>Kurve halten</translation>
    </message>
    <message>
        <source>Name in the legend</source>
        <translation>Name in der Legende</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Traces</source>
        <translation>&amp;Kurven</translation>
    </message>
    <message>
        <source>&amp;Markers</source>
        <translation>&amp;Marken</translation>
    </message>
    <message>
        <source>Monte &amp;Carlo</source>
        <translation>Monte &amp;Carlo</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>No part to vary</source>
        <translation>Kein Bauteil zu verändern</translation>
    </message>
    <message>
        <source>Yield: %1 % (%2 of %3)</source>
        <translation>Ausbeute: %1 % (%2 von %3)</translation>
    </message>
    <message>
        <source>Monte Carlo</source>
        <translation>Monte Carlo</translation>
    </message>
    <message>
        <source>Seed, a whole number; empty: other parts with every run</source>
        <translation>Startwert, eine ganze Zahl; leer: bei jedem Lauf andere Bauteile</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number.</source>
        <translation>&quot;%1&quot; ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
</context>
<context>
    <name>kelvro::SearchChoices</name>
    <message>
        <source>&amp;Ladder</source>
        <translation>&amp;Kette</translation>
    </message>
    <message>
        <source>&amp;Values</source>
        <translation>&amp;Werte</translation>
    </message>
    <message>
        <source>&amp;Building</source>
        <translation>B&amp;au</translation>
    </message>
    <message>
        <source>Smallest </source>
        <translation>Kleinste </translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Largest </source>
        <translation>Größte </translation>
    </message>
    <message>
        <source>4 parts take a second, 5 some seconds, 6 half a minute</source>
        <translation>4 Bauteile dauern eine Sekunde, 5 einige Sekunden, 6 eine halbe Minute</translation>
    </message>
    <message>
        <source>&amp;Most parts</source>
        <translation>&amp;Bauteile max.</translation>
    </message>
    <message>
        <source>The search may build with these</source>
        <translation>Damit darf die Suche bauen</translation>
    </message>
    <message>
        <source>Made of</source>
        <translation>Gebaut aus</translation>
    </message>
    <message>
        <source>does not matter</source>
        <translation>gleichgültig</translation>
    </message>
    <message>
        <source>blocked</source>
        <translation>gesperrt</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>durchgelassen</translation>
    </message>
    <message>
        <source>Direct current from source to load</source>
        <translation>Gleichstrom von der Quelle zur Last</translation>
    </message>
    <message>
        <source>&amp;DC</source>
        <translation>&amp;Gleichstrom</translation>
    </message>
    <message>
        <source>any</source>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>low-pass</source>
        <translation>Tiefpass</translation>
    </message>
    <message>
        <source>high-pass</source>
        <translation>Hochpass</translation>
    </message>
    <message>
        <source>Of the response far from the band</source>
        <translation>Des Frequenzgangs weit vom Band</translation>
    </message>
    <message>
        <source>S&amp;hape</source>
        <translation>F&amp;orm</translation>
    </message>
    <message>
        <source>Ha&amp;rmonics</source>
        <translation>Ha&amp;rmonische</translation>
    </message>
    <message>
        <source>Gain left at harmonics of the middle of the band: order:dB</source>
        <translation>Verstärkung bei Harmonischen der Bandmitte: Ordnung:dB</translation>
    </message>
    <message>
        <source>F&amp;irst at least</source>
        <translation>&amp;Erstes ab</translation>
    </message>
    <message>
        <source>A part that the source brings along: C across, L in series</source>
        <translation>Ein Bauteil, das die Quelle mitbringt: C quer, L längs</translation>
    </message>
    <message>
        <source>Las&amp;t at least</source>
        <translation>Le&amp;tztes ab</translation>
    </message>
    <message>
        <source>A part that the load brings along: C across, L in series</source>
        <translation>Ein Bauteil, das die Last mitbringt: C quer, L längs</translation>
    </message>
    <message>
        <source>Inductance</source>
        <translation>Induktivität</translation>
    </message>
    <message>
        <source>Capacitance</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>Line impedance</source>
        <translation>Wellenwiderstand</translation>
    </message>
    <message>
        <source>&amp;Q of inductors</source>
        <translation>&amp;Q der Spulen</translation>
    </message>
    <message>
        <source>Losses count in the search: Q, or Q@frequency; empty: none</source>
        <translation>Verluste zählen in der Suche: Q oder Q@Frequenz; leer: keine</translation>
    </message>
    <message>
        <source>Q of ca&amp;pacitors</source>
        <translation>Q der &amp;Kondensatoren</translation>
    </message>
    <message>
        <source>Tolerance of inductors %</source>
        <translation>Toleranz der Spulen %</translation>
    </message>
    <message>
        <source>For the yield, percent</source>
        <translation>Für die Ausbeute, Prozent</translation>
    </message>
    <message>
        <source>of capacitors %</source>
        <translation>der Kondensatoren %</translation>
    </message>
    <message>
        <source>Builds keep dB</source>
        <translation>Exemplare halten dB</translation>
    </message>
    <message>
        <source>0.5 below the best</source>
        <translation>0.5 unter dem Besten</translation>
    </message>
    <message>
        <source>Worst gain that a build has to keep to count as good, dB</source>
        <translation>Schlechteste Verstärkung, die ein Exemplar halten muss, um als gut zu zählen, dB</translation>
    </message>
    <message>
        <source>The best so many are listed</source>
        <translation>So viele der besten werden gelistet</translation>
    </message>
    <message>
        <source>Networks shown</source>
        <translation>Gezeigte Netzwerke</translation>
    </message>
    <message>
        <source>The same seed finds the same networks</source>
        <translation>Derselbe Startwert findet dieselben Netzwerke</translation>
    </message>
    <message>
        <source>Seed</source>
        <translation>Startwert</translation>
    </message>
</context>
<context>
    <name>kelvro::SeriesChoice</name>
    <message>
        <source>&amp;Inductors</source>
        <translation>&amp;Spulen</translation>
    </message>
    <message>
        <source>Ca&amp;pacitors</source>
        <translation>&amp;Kondensatoren</translation>
    </message>
    <message>
        <source>&amp;Resistors</source>
        <translation>&amp;Widerstände</translation>
    </message>
    <message>
        <source>&amp;Own parts…</source>
        <translation>&amp;Eigene Teile…</translation>
    </message>
    <message>
        <source>A text file with values like &quot;L: 10n 22n&quot;, &quot;18pF&quot;; kinds that it names are chosen from it</source>
        <translation>Eine Textdatei mit Werten wie &quot;L: 10n 22n&quot;, &quot;18pF&quot;; Arten, die sie nennt, werden daraus gewählt</translation>
    </message>
    <message>
        <source>any value</source>
        <translation>jeder Wert</translation>
    </message>
    <message>
        <source>Series that the values are taken from</source>
        <translation>Reihe, aus der die Werte genommen werden</translation>
    </message>
    <message>
        <source>List of own parts</source>
        <translation>Liste eigener Teile</translation>
    </message>
    <message>
        <source>Lists (*.txt *.csv);;All files (*)</source>
        <translation>Listen (*.txt *.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>ist nicht lesbar</translation>
    </message>
</context>
<context>
    <name>kelvro::SharedPanel</name>
    <message>
        <source>Source and Load</source>
        <translation>Quelle und Last</translation>
    </message>
    <message>
        <source>S&amp;witch</source>
        <translation>&amp;Tauschen</translation>
    </message>
    <message>
        <source>Switch R1 and R2</source>
        <translation>R1 und R2 vertauschen</translation>
    </message>
    <message>
        <source>Quality Factors</source>
        <translation>Güten</translation>
    </message>
    <message>
        <source>&amp;Q by d</source>
        <translation>&amp;Q aus d</translation>
    </message>
    <message>
        <source>otherwise Q will be determined by bandwidth</source>
        <translation>sonst folgt Q aus der Bandbreite</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>approximately fo/Q</source>
        <translation>ungefähr fo/Q</translation>
    </message>
    <message>
        <source>compared to optimum match</source>
        <translation>gegenüber der besten Anpassung</translation>
    </message>
    <message>
        <source>Bandwidth</source>
        <translation>Bandbreite</translation>
    </message>
    <message>
        <source>voltage at the load over that of the source, at fo</source>
        <translation>Spannung an der Last zu der der Quelle, bei fo</translation>
    </message>
    <message>
        <source>v=V2/V1</source>
        <translation>v=V2/V1</translation>
    </message>
    <message>
        <source>20·log(v)</source>
        <translation>20·log(v)</translation>
    </message>
    <message>
        <source>Loss</source>
        <translation>Verlust</translation>
    </message>
    <message>
        <source>Total effective element Q-factor</source>
        <translation>Gesamte wirksame Bauteilgüte</translation>
    </message>
    <message>
        <source>Standard Values</source>
        <translation>Normwerte</translation>
    </message>
    <message>
        <source>Series that component values are rounded to</source>
        <translation>Reihe, auf die Bauteilwerte gerundet werden</translation>
    </message>
    <message>
        <source>E-&amp;Series for Export</source>
        <translation>E-&amp;Reihe für Export</translation>
    </message>
    <message>
        <source>Use selected E-series values for circuit export for all elements</source>
        <translation>Für den Export alle Bauteile mit Werten der gewählten E-Reihe</translation>
    </message>
</context>
<context>
    <name>kelvro::SliderPanel</name>
    <message>
        <source>Worst GT in the bands</source>
        <translation>Schlechtestes GT in den Bändern</translation>
    </message>
    <message>
        <source>Values through which sliders step; Shift steps through them on the chart</source>
        <translation>Werte, durch die Schieber gehen; mit Umschalt auch im Diagramm</translation>
    </message>
    <message>
        <source>÷ × %1</source>
        <translation>÷ × %1</translation>
    </message>
    <message>
        <source>How far the ends of the sliders lie from the present values</source>
        <translation>Wie weit die Enden der Schieber von den gegenwärtigen Werten liegen</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>gang</source>
        <translation>mit</translation>
    </message>
    <message>
        <source>lock</source>
        <translation>fest</translation>
    </message>
    <message>
        <source>Moves together with the others that are ganged, by the same ratio</source>
        <translation>Bewegt sich mit den anderen so gekoppelten im selben Verhältnis</translation>
    </message>
    <message>
        <source>Refining and centring leave it alone</source>
        <translation>Verfeinern und Zentrieren lassen es in Ruhe</translation>
    </message>
    <message>
        <source>Tune %1</source>
        <translation>%1 abstimmen</translation>
    </message>
    <message>
        <source>Gang %1</source>
        <translation>%1 koppeln</translation>
    </message>
    <message>
        <source>Lock %1</source>
        <translation>%1 festhalten</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>no bands</source>
        <translation>keine Bänder</translation>
    </message>
    <message>
        <source>Tune ganged values</source>
        <translation>Gekoppelte Werte abstimmen</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
</context>
<context>
    <name>kelvro::SmithView</name>
    <message>
        <source>Smith chart</source>
        <translation>Smith-Diagramm</translation>
    </message>
    <message>
        <source>Drag %1</source>
        <translation>%1 ziehen</translation>
    </message>
</context>
<context>
    <name>kelvro::StageView</name>
    <message>
        <source>Si&amp;mulate</source>
        <translation>Si&amp;mulieren</translation>
    </message>
    <message>
        <source>Harmonics of the load current, parts without loss</source>
        <translation>Harmonische des Laststroms, Bauteile ohne Verluste</translation>
    </message>
    <message>
        <source>Run the exported netlist in ngspice and compare</source>
        <translation>Die ausgegebene Netzliste in ngspice rechnen und vergleichen</translation>
    </message>
    <message>
        <source>One period from turn-on, parts without loss</source>
        <translation>Eine Periode ab dem Einschalten, Bauteile ohne Verluste</translation>
    </message>
    <message>
        <source>ngspice is running...</source>
        <translation>ngspice rechnet...</translation>
    </message>
    <message>
        <source>Computed and simulated</source>
        <translation>Berechnet und simuliert</translation>
    </message>
    <message>
        <source>The stage with the element Q of its parts:</source>
        <translation>Die Endstufe mit der Güte ihrer Bauteile:</translation>
    </message>
</context>
<context>
    <name>kelvro::StandardDialog</name>
    <message>
        <source>Standard values</source>
        <translation>Normwerte</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Bauteil</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation>Gewählt</translation>
    </message>
    <message>
        <source>What stays free, lines and transformers are optimized for the others</source>
        <translation>Was frei bleibt, Leitungen und Übertrager werden für die anderen optimiert</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>every value is free: choose a series</source>
        <translation>jeder Wert ist frei: Wählen Sie eine Reihe</translation>
    </message>
    <message>
        <source>Worst GT: %1 now, %2 with each part rounded by itself, %3 chosen together</source>
        <translation>Schlechtestes GT: %1 jetzt, %2 mit jedem Bauteil für sich gerundet, %3 gemeinsam gewählt</translation>
    </message>
</context>
<context>
    <name>kelvro::SweepView</name>
    <message>
        <source>What this plot shows first, on the left axis</source>
        <translation>Was dieses Bild zuerst zeigt, auf der linken Achse</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>What this plot shows beside it, on the right axis where it is of another kind</source>
        <translation>Was dieses Bild daneben zeigt, auf der rechten Achse, wenn es anderer Art ist</translation>
    </message>
    <message>
        <source>Δf %1</source>
        <translation>Δf %1</translation>
    </message>
    <message>
        <source>Click or M: marker, right button or Del: remove it, arrows: read, wheel: zoom, with Ctrl or beside a value axis its values, L: logarithmic frequencies, double-click or 0: fit</source>
        <translation>Klick oder M: Marke, rechte Taste oder Entf: entfernen, Pfeile: ablesen, Rad: Zoom, mit Strg oder neben einer Werteachse deren Werte, L: logarithmische Frequenzen, Doppelklick oder 0: einpassen</translation>
    </message>
    <message>
        <source>Logarithmic Frequencies</source>
        <translation>Logarithmische Frequenzen</translation>
    </message>
</context>
<context>
    <name>kelvro::TAboutBox</name>
    <message>
        <source>About Kelvro</source>
        <translation>Über Kelvro</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Kelvro %1&lt;/h2&gt;&lt;p&gt;Matching networks, attenuators and output networks&lt;br&gt;of power amplifiers, designed while you type.&lt;/p&gt;&lt;p&gt;Free software under the MIT licence.&lt;br&gt;Built with Qt %2.&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Kelvro %1&lt;/h2&gt;&lt;p&gt;Anpassnetzwerke, Dämpfungsglieder und Ausgangsnetzwerke&lt;br&gt;von Leistungsverstärkern, entworfen, während Sie tippen.&lt;/p&gt;&lt;p&gt;Freie Software unter der MIT-Lizenz.&lt;br&gt;Gebaut mit Qt %2.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;Details...</source>
        <translation>&amp;Einzelheiten...</translation>
    </message>
</context>
<context>
    <name>kelvro::TCircuitHintsDlg</name>
    <message>
        <source>Circuit Hints: %1</source>
        <translation>Hinweise zur Schaltung: %1</translation>
    </message>
</context>
<context>
    <name>kelvro::TExportDlg</name>
    <message>
        <source>Use selected E-series values for circuit export for all elements</source>
        <translation>Für den Export alle Bauteile mit Werten der gewählten E-Reihe</translation>
    </message>
    <message>
        <source>Export - %1</source>
        <translation>Export - %1</translation>
    </message>
    <message>
        <source>Standard values (%1)</source>
        <translation>Normwerte (%1)</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormCalculator</name>
    <message>
        <source>Calculator</source>
        <translation>Taschenrechner</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>&amp;Expression</source>
        <translation>&amp;Ausdruck</translation>
    </message>
    <message>
        <source>Enter keeps the line, the cursor keys bring it back</source>
        <translation>Enter behält die Zeile, die Cursortasten holen sie zurück</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>All digits</source>
        <translation>Alle Stellen</translation>
    </message>
    <message>
        <source>Prefixes a f p n u m c d k M G T and mil behind numbers. Operators + - * / ^, functions sqrt, exp, ln, log (base 10), sin, cos, tan, asin, acos, atan (radian), abs, min, max, par(a; b) in parallel, dB(v) = 20 log v and its inverse lin(dB). Constants pi, e, c0, mu0, eps0; ans is the value kept last.</source>
        <translation>Vorsätze a f p n u m c d k M G T und mil hinter Zahlen. Operatoren + - * / ^, Funktionen sqrt, exp, ln, log (Basis 10), sin, cos, tan, asin, acos, atan (Bogenmaß), abs, min, max, par(a; b) parallel, dB(v) = 20 log v und die Umkehrung lin(dB). Konstanten pi, e, c0, mu0, eps0; ans ist der zuletzt behaltene Wert.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormClipboard</name>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>&amp;Keep this text</source>
        <translation>Diesen Text &amp;behalten</translation>
    </message>
    <message>
        <source>Leaves the text as it is when something else is copied</source>
        <translation>Lässt den Text, wie er ist, wenn anderes kopiert wird</translation>
    </message>
    <message>
        <source>Numbers in it</source>
        <translation>Zahlen darin</translation>
    </message>
    <message>
        <source>As written</source>
        <translation>Wie geschrieben</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>What the text in the clipboard is read as</source>
        <translation>Als was der Text in der Zwischenablage gelesen wird</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Smallest</source>
        <translation>Kleinste</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>In parallel</source>
        <translation>Parallel</translation>
    </message>
    <message>
        <source>1/sum of the reciprocals</source>
        <translation>1/Summe der Kehrwerte</translation>
    </message>
    <message>
        <source>Copy &amp;numbers</source>
        <translation>&amp;Zahlen kopieren</translation>
    </message>
    <message>
        <source>Copy the values of the chosen numbers, or of all, one per line</source>
        <translation>Die Werte der gewählten Zahlen kopieren, oder aller, eine je Zeile</translation>
    </message>
    <message>
        <source>Only the first %1 numbers are listed.</source>
        <translation>Nur die ersten %1 Zahlen werden gelistet.</translation>
    </message>
    <message>
        <source>There is no text on the clipboard.</source>
        <translation>In der Zwischenablage ist kein Text.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormCoils</name>
    <message>
        <source>Coils</source>
        <translation>Spulen</translation>
    </message>
    <message>
        <source>Wanted</source>
        <translation>Gesucht</translation>
    </message>
    <message>
        <source>&amp;Coil</source>
        <translation>&amp;Spule</translation>
    </message>
    <message>
        <source>Single-layer solenoid</source>
        <translation>Einlagige Zylinderspule</translation>
    </message>
    <message>
        <source>Flat spiral</source>
        <translation>Flache Spirale</translation>
    </message>
    <message>
        <source>Toroid</source>
        <translation>Ringkern</translation>
    </message>
    <message>
        <source>How the coil is wound</source>
        <translation>Wie die Spule gewickelt ist</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Finden</translation>
    </message>
    <message>
        <source>L from turns</source>
        <translation>L aus Windungen</translation>
    </message>
    <message>
        <source>Turns from L</source>
        <translation>Windungen aus L</translation>
    </message>
    <message>
        <source>What is given and what is looked for</source>
        <translation>Was gegeben ist und was gesucht wird</translation>
    </message>
    <message>
        <source>Turns &amp;N</source>
        <translation>Windungen &amp;N</translation>
    </message>
    <message>
        <source>May be a fraction</source>
        <translation>Darf ein Bruch sein</translation>
    </message>
    <message>
        <source>&amp;Inductance L</source>
        <translation>&amp;Induktivität L</translation>
    </message>
    <message>
        <source>Wanted at low frequencies</source>
        <translation>Gewünscht bei niedrigen Frequenzen</translation>
    </message>
    <message>
        <source>F&amp;requency fo</source>
        <translation>F&amp;requenz fo</translation>
    </message>
    <message>
        <source>For reactance and Q; follows the design until typed</source>
        <translation>Für Blindwiderstand und Güte; folgt dem Entwurf, bis Sie tippen</translation>
    </message>
    <message>
        <source>Dimensions</source>
        <translation>Abmessungen</translation>
    </message>
    <message>
        <source>Mean &amp;diameter</source>
        <translation>Mittlerer &amp;Durchmesser</translation>
    </message>
    <message>
        <source>Wire centre to wire centre</source>
        <translation>Drahtmitte zu Drahtmitte</translation>
    </message>
    <message>
        <source>&amp;Wire diameter</source>
        <translation>Dra&amp;htdurchmesser</translation>
    </message>
    <message>
        <source>0: ideal current sheet</source>
        <translation>0: ideale Stromschicht</translation>
    </message>
    <message>
        <source>&amp;Given</source>
        <translation>&amp;Gegeben</translation>
    </message>
    <message>
        <source>Length of winding</source>
        <translation>Länge der Wicklung</translation>
    </message>
    <message>
        <source>Pitch of turns</source>
        <translation>Steigung</translation>
    </message>
    <message>
        <source>Which of the two stays as typed when the turns change</source>
        <translation>Was wie getippt bleibt, wenn sich die Windungen ändern</translation>
    </message>
    <message>
        <source>L&amp;ength</source>
        <translation>L&amp;änge</translation>
    </message>
    <message>
        <source>Of the winding, or from turn to turn</source>
        <translation>Der Wicklung, oder von Windung zu Windung</translation>
    </message>
    <message>
        <source>&amp;Shape</source>
        <translation>F&amp;orm</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Hexagon</source>
        <translation>Sechseck</translation>
    </message>
    <message>
        <source>Octagon</source>
        <translation>Achteck</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Of one turn</source>
        <translation>Einer Windung</translation>
    </message>
    <message>
        <source>Inner &amp;diameter</source>
        <translation>Innen&amp;durchmesser</translation>
    </message>
    <message>
        <source>Free width inside the first turn</source>
        <translation>Freie Weite in der ersten Windung</translation>
    </message>
    <message>
        <source>Conductor &amp;width</source>
        <translation>Leiter&amp;breite</translation>
    </message>
    <message>
        <source>Of the track or wire</source>
        <translation>Der Bahn oder des Drahtes</translation>
    </message>
    <message>
        <source>&amp;Gap between turns</source>
        <translation>&amp;Abstand der Windungen</translation>
    </message>
    <message>
        <source>Free width from turn to turn</source>
        <translation>Freie Weite von Windung zu Windung</translation>
    </message>
    <message>
        <source>C&amp;ore</source>
        <translation>K&amp;ern</translation>
    </message>
    <message>
        <source>A_L of the data sheet</source>
        <translation>A_L des Datenblatts</translation>
    </message>
    <message>
        <source>What is known of the core</source>
        <translation>Was vom Kern bekannt ist</translation>
    </message>
    <message>
        <source>&amp;A_L per turn²</source>
        <translation>&amp;A_L je Windung²</translation>
    </message>
    <message>
        <source>Inductance factor of the data sheet</source>
        <translation>Induktivitätsfaktor des Datenblatts</translation>
    </message>
    <message>
        <source>&amp;Permeability</source>
        <translation>&amp;Permeabilität</translation>
    </message>
    <message>
        <source>1: air</source>
        <translation>1: Luft</translation>
    </message>
    <message>
        <source>O&amp;utside diameter</source>
        <translation>A&amp;ußendurchmesser</translation>
    </message>
    <message>
        <source>Of the core</source>
        <translation>Des Kerns</translation>
    </message>
    <message>
        <source>&amp;Hole diameter</source>
        <translation>&amp;Lochdurchmesser</translation>
    </message>
    <message>
        <source>Inside diameter of the core</source>
        <translation>Innendurchmesser des Kerns</translation>
    </message>
    <message>
        <source>H&amp;eight</source>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>Of the core, along its axis</source>
        <translation>Des Kerns, entlang seiner Achse</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Inductance L</source>
        <translation>Induktivität L</translation>
    </message>
    <message>
        <source>Turns N</source>
        <translation>Windungen N</translation>
    </message>
    <message>
        <source>L at whole turns</source>
        <translation>L bei ganzen Windungen</translation>
    </message>
    <message>
        <source>Reactance at fo</source>
        <translation>Blindwiderstand bei fo</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>A_L per turn²</source>
        <translation>A_L je Windung²</translation>
    </message>
    <message>
        <source>Length of wire</source>
        <translation>Drahtlänge</translation>
    </message>
    <message>
        <source>Without its ends</source>
        <translation>Ohne die Enden</translation>
    </message>
    <message>
        <source>Q at fo, about</source>
        <translation>Q bei fo, etwa</translation>
    </message>
    <message>
        <source>Copper wire, free air</source>
        <translation>Kupferdraht, freie Luft</translation>
    </message>
    <message>
        <source>Self-capacitance</source>
        <translation>Eigenkapazität</translation>
    </message>
    <message>
        <source>One end earthed, free air</source>
        <translation>Ein Ende geerdet, freie Luft</translation>
    </message>
    <message>
        <source>Self-resonance</source>
        <translation>Eigenresonanz</translation>
    </message>
    <message>
        <source>&amp;Pitch</source>
        <translation>&amp;Steigung</translation>
    </message>
    <message>
        <source>Outside diameter</source>
        <translation>Außendurchmesser</translation>
    </message>
    <message>
        <source>Lundin 1985 (within 3e-6 of the exact current sheet, any shape); round wire after Rosa 1906. Q and self-capacitance after the measurements of Medhurst 1947, length of 0.2 to 10 diameters. No screen.</source>
        <translation>Lundin 1985 (auf 3e-6 der genauen Stromschicht, jede Form); runder Draht nach Rosa 1906. Güte und Eigenkapazität nach den Messungen von Medhurst 1947, Länge von 0.2 bis 10 Durchmessern. Ohne Abschirmung.</translation>
    </message>
    <message>
        <source>Mohan, Hershenson, Boyd and Lee 1999: within 2 to 3 % while the gap is not wider than the conductor. Flat conductor, no ground plane.</source>
        <translation>Mohan, Hershenson, Boyd und Lee 1999: auf 2 bis 3 %, solange der Abstand nicht größer ist als der Leiter. Flacher Leiter, keine Massefläche.</translation>
    </message>
    <message>
        <source>L = A_L N². From dimensions: rectangular section, wound all around, exact without leakage.</source>
        <translation>L = A_L N². Aus Abmessungen: rechteckiger Querschnitt, rundum bewickelt, genau ohne Streuung.</translation>
    </message>
    <message>
        <source>No coil of these dimensions has this inductance.</source>
        <translation>Keine Spule mit diesen Abmessungen hat diese Induktivität.</translation>
    </message>
    <message>
        <source>These dimensions make no coil.</source>
        <translation>Diese Abmessungen ergeben keine Spule.</translation>
    </message>
    <message>
        <source>fo is near the self-resonance: the coil acts as a larger inductance.</source>
        <translation>fo liegt nahe der Eigenresonanz: Die Spule wirkt als größere Induktivität.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormDecibel</name>
    <message>
        <source>Decibel Calculations</source>
        <translation>Dezibelrechnung</translation>
    </message>
    <message>
        <source>Voltages and currents are effective values of a sine in the resistance R.</source>
        <translation>Spannungen und Ströme sind Effektivwerte eines Sinus am Widerstand R.</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>&amp;Level</source>
        <translation>&amp;Pegel</translation>
    </message>
    <message>
        <source>In the unit below</source>
        <translation>In der Einheit darunter</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Of the level above</source>
        <translation>Des Pegels darüber</translation>
    </message>
    <message>
        <source>In &amp;R</source>
        <translation>An &amp;R</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Resistance that takes the level</source>
        <translation>Widerstand, der den Pegel aufnimmt</translation>
    </message>
    <message>
        <source>The same level</source>
        <translation>Derselbe Pegel</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Verhältnis</translation>
    </message>
    <message>
        <source>R&amp;atio</source>
        <translation>V&amp;erhältnis</translation>
    </message>
    <message>
        <source>Output over input, given as below</source>
        <translation>Ausgang zu Eingang, angegeben wie darunter</translation>
    </message>
    <message>
        <source>Gi&amp;ven as</source>
        <translation>An&amp;gegeben als</translation>
    </message>
    <message>
        <source>power</source>
        <translation>Leistung</translation>
    </message>
    <message>
        <source>voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>What the number above is</source>
        <translation>Was die Zahl darüber ist</translation>
    </message>
    <message>
        <source>From R&amp;1</source>
        <translation>Von R&amp;1</translation>
    </message>
    <message>
        <source>Resistance at the input</source>
        <translation>Widerstand am Eingang</translation>
    </message>
    <message>
        <source>To R&amp;2</source>
        <translation>Auf R&amp;2</translation>
    </message>
    <message>
        <source>Resistance at the output</source>
        <translation>Widerstand am Ausgang</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Several levels in dB</source>
        <translation>Mehrere Pegel in dB</translation>
    </message>
    <message>
        <source>Level&amp;s</source>
        <translation>Pege&amp;l</translation>
    </message>
    <message>
        <source>Any number of levels, separated by spaces or ;</source>
        <translation>Beliebig viele Pegel, getrennt durch Leerzeichen oder ;</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Sum of powers</source>
        <translation>Summe der Leistungen</translation>
    </message>
    <message>
        <source>Sources that do not know each other</source>
        <translation>Quellen, die nichts voneinander wissen</translation>
    </message>
    <message>
        <source>Sum in phase</source>
        <translation>Summe in Phase</translation>
    </message>
    <message>
        <source>Voltages that add up</source>
        <translation>Spannungen, die sich addieren</translation>
    </message>
    <message>
        <source>In a chain</source>
        <translation>In einer Kette</translation>
    </message>
    <message>
        <source>Gains one after the other</source>
        <translation>Verstärkungen hintereinander</translation>
    </message>
    <message>
        <source>R must be positive.</source>
        <translation>R muss positiv sein.</translation>
    </message>
    <message>
        <source>A power cannot be negative here.</source>
        <translation>Eine Leistung kann hier nicht negativ sein.</translation>
    </message>
    <message>
        <source>R1 and R2 must be positive.</source>
        <translation>R1 und R2 müssen positiv sein.</translation>
    </message>
    <message>
        <source>A power ratio cannot be negative here.</source>
        <translation>Ein Leistungsverhältnis kann hier nicht negativ sein.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormFilters</name>
    <message>
        <source>LC Filters</source>
        <translation>LC-Filter</translation>
    </message>
    <message>
        <source>Doubly terminated ladders after Matthaei, Young and Jones 1964. The edges are those at 3.01 dB (Butterworth) or at the ripple (Chebyshev).</source>
        <translation>Beidseitig abgeschlossene Kettennetzwerke nach Matthaei, Young und Jones 1964. Die Grenzen liegen bei 3.01 dB (Butterworth) oder bei der Welligkeit (Tschebyscheff).</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>A&amp;rt</translation>
    </message>
    <message>
        <source>Low-pass</source>
        <translation>Tiefpass</translation>
    </message>
    <message>
        <source>High-pass</source>
        <translation>Hochpass</translation>
    </message>
    <message>
        <source>Band-pass</source>
        <translation>Bandpass</translation>
    </message>
    <message>
        <source>Band-stop</source>
        <translation>Bandsperre</translation>
    </message>
    <message>
        <source>What the filter lets pass</source>
        <translation>Was das Filter durchlässt</translation>
    </message>
    <message>
        <source>&amp;Approximation</source>
        <translation>&amp;Approximation</translation>
    </message>
    <message>
        <source>Flat in the pass band, or steeper with ripple</source>
        <translation>Flach im Durchlassbereich, oder steiler mit Welligkeit</translation>
    </message>
    <message>
        <source>&amp;Order</source>
        <translation>&amp;Ordnung</translation>
    </message>
    <message>
        <source>Of the low-pass that the filter is made from</source>
        <translation>Des Tiefpasses, aus dem das Filter entsteht</translation>
    </message>
    <message>
        <source>&amp;Ripple</source>
        <translation>&amp;Welligkeit</translation>
    </message>
    <message>
        <source>Above 0 to 3 dB</source>
        <translation>Über 0 bis 3 dB</translation>
    </message>
    <message>
        <source>Edge or centre of the band; follows the design until typed</source>
        <translation>Grenze oder Mitte des Bandes; folgt dem Entwurf, bis Sie tippen</translation>
    </message>
    <message>
        <source>&amp;Bandwidth</source>
        <translation>&amp;Bandbreite</translation>
    </message>
    <message>
        <source>Upper edge less lower edge</source>
        <translation>Obere minus untere Grenze</translation>
    </message>
    <message>
        <source>R&amp;1</source>
        <translation>R&amp;1</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Source resistance</source>
        <translation>Quellwiderstand</translation>
    </message>
    <message>
        <source>First &amp;element</source>
        <translation>Erstes &amp;Element</translation>
    </message>
    <message>
        <source>across</source>
        <translation>quer</translation>
    </message>
    <message>
        <source>in series</source>
        <translation>längs</translation>
    </message>
    <message>
        <source>How the ladder begins at the source</source>
        <translation>Wie die Kette an der Quelle beginnt</translation>
    </message>
    <message>
        <source>Q of &amp;L</source>
        <translation>Q von &amp;L</translation>
    </message>
    <message>
        <source>Empty: no losses</source>
        <translation>Leer: keine Verluste</translation>
    </message>
    <message>
        <source>&amp;Q of C</source>
        <translation>&amp;Q von C</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Load that the filter needs</source>
        <translation>Last, die das Filter braucht</translation>
    </message>
    <message>
        <source>Lower edge</source>
        <translation>Untere Grenze</translation>
    </message>
    <message>
        <source>Upper edge</source>
        <translation>Obere Grenze</translation>
    </message>
    <message>
        <source>Lower edge at 3 dB</source>
        <translation>Untere Grenze bei 3 dB</translation>
    </message>
    <message>
        <source>Without losses</source>
        <translation>Ohne Verluste</translation>
    </message>
    <message>
        <source>Upper edge at 3 dB</source>
        <translation>Obere Grenze bei 3 dB</translation>
    </message>
    <message>
        <source>At another frequency</source>
        <translation>Bei einer anderen Frequenz</translation>
    </message>
    <message>
        <source>Where attenuation and return loss are told</source>
        <translation>Wo Dämpfung und Rückflussdämpfung angegeben werden</translation>
    </message>
    <message>
        <source>&amp;Wanted attenuation</source>
        <translation>Ge&amp;wünschte Dämpfung</translation>
    </message>
    <message>
        <source>At f, for the least order</source>
        <translation>Bei f, für die kleinste Ordnung</translation>
    </message>
    <message>
        <source>Attenuation</source>
        <translation>Dämpfung</translation>
    </message>
    <message>
        <source>With the losses</source>
        <translation>Mit den Verlusten</translation>
    </message>
    <message>
        <source>Return loss</source>
        <translation>Rückflussdämpfung</translation>
    </message>
    <message>
        <source>Least order for the wish</source>
        <translation>Kleinste Ordnung für den Wunsch</translation>
    </message>
    <message>
        <source>Plot down to </source>
        <translation>Bild hinunter bis </translation>
    </message>
    <message>
        <source>How deep the plot reaches, and how wide</source>
        <translation>Wie tief das Bild reicht, und wie weit</translation>
    </message>
    <message>
        <source>Arm</source>
        <translation>Zweig</translation>
    </message>
    <message>
        <source>Resonator</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Arms from source to load</source>
        <translation>Zweige von der Quelle zur Last</translation>
    </message>
    <message>
        <source>&amp;Centre fo</source>
        <translation>&amp;Mitte fo</translation>
    </message>
    <message>
        <source>&amp;Cutoff frequency</source>
        <translation>&amp;Grenzfrequenz</translation>
    </message>
    <message>
        <source> in series</source>
        <translation> längs</translation>
    </message>
    <message>
        <source> across</source>
        <translation> quer</translation>
    </message>
    <message>
        <source>L, C in series</source>
        <translation>L, C in Reihe</translation>
    </message>
    <message>
        <source>L, C in parallel</source>
        <translation>L, C parallel</translation>
    </message>
    <message>
        <source>Frequencies and R1 must be positive, the ripple above 0 to 3 dB.</source>
        <translation>Frequenzen und R1 müssen positiv sein, die Welligkeit über 0 bis 3 dB.</translation>
    </message>
    <message>
        <source>No order up to %1 attenuates that much at f.</source>
        <translation>Keine Ordnung bis %1 dämpft bei f so stark.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormGlobalOpt</name>
    <message>
        <source>Global Optimization</source>
        <translation>Globale Optimierung</translation>
    </message>
    <message>
        <source>Tour through the cities; grey: the tour at start, red: the first city</source>
        <translation>Tour durch die Städte; grau: die Tour am Anfang, rot: die erste Stadt</translation>
    </message>
    <message>
        <source>City random seed: %1 </source>
        <translation>Startwert der Städte: %1 </translation>
    </message>
    <message>
        <source>Travelling salesman</source>
        <translation>Handlungsreisender</translation>
    </message>
    <message>
        <source>number of total combinations is n!</source>
        <translation>die Gesamtzahl der Kombinationen ist n!</translation>
    </message>
    <message>
        <source>influences random number generation for city positioning</source>
        <translation>beeinflusst die Zufallszahlen für die Lage der Städte</translation>
    </message>
    <message>
        <source>influences random number generation  (with constant city positions)</source>
        <translation>beeinflusst die Zufallszahlen (bei gleicher Lage der Städte)</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Verfahren</translation>
    </message>
    <message>
        <source>Simulated annealing</source>
        <translation>Simuliertes Abkühlen</translation>
    </message>
    <message>
        <source>random moves, accepted under a falling temperature</source>
        <translation>zufällige Züge, angenommen bei fallender Temperatur</translation>
    </message>
    <message>
        <source>Genetic algorithm</source>
        <translation>Genetischer Algorithmus</translation>
    </message>
    <message>
        <source>not yet implemented</source>
        <translation>noch nicht vorhanden</translation>
    </message>
    <message>
        <source>Particle swarm</source>
        <translation>Partikelschwarm</translation>
    </message>
    <message>
        <source>Random and temperature accept</source>
        <translation>Nach Zufall und Temperatur annehmen</translation>
    </message>
    <message>
        <source>accepting criteria , otherwise only temperature decides</source>
        <translation>Annahmeregel, sonst entscheidet nur die Temperatur</translation>
    </message>
    <message>
        <source>Full deterministic accept</source>
        <translation>Deterministisch annehmen</translation>
    </message>
    <message>
        <source>often leads to trapping into local minimum</source>
        <translation>führt oft in ein lokales Minimum</translation>
    </message>
    <message>
        <source>Draw each step</source>
        <translation>Jeden Schritt zeichnen</translation>
    </message>
    <message>
        <source>unchecked you can see better start and end set of optimization</source>
        <translation>ohne Haken sind Anfang und Ende der Optimierung besser zu sehen</translation>
    </message>
    <message>
        <source>Single run</source>
        <translation>Einzelner Lauf</translation>
    </message>
    <message>
        <source>Minimum length in MC : 999.9999k, minimum average length is 999.9999</source>
        <translation>Kleinste Länge in MC: 999.9999k, kleinste mittlere Länge ist 999.9999</translation>
    </message>
    <message>
        <source>%v of %m runs</source>
        <translation>%v von %m Läufen</translation>
    </message>
    <message>
        <source>finished runs of the Monte Carlo</source>
        <translation>fertige Läufe der Monte-Carlo-Analyse</translation>
    </message>
    <message>
        <source>&amp;Trigger</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>Restart optimization with current settings</source>
        <translation>Die Optimierung mit den gegenwärtigen Einstellungen neu beginnen</translation>
    </message>
    <message>
        <source>&amp;Monte Carlo</source>
        <translation>&amp;Monte Carlo</translation>
    </message>
    <message>
        <source>Repeat the optimization with 81 random seeds</source>
        <translation>Die Optimierung mit 81 Startwerten wiederholen</translation>
    </message>
    <message>
        <source>&amp;Best</source>
        <translation>&amp;Bester</translation>
    </message>
    <message>
        <source>Show the best Monte Carlo run</source>
        <translation>Den besten Monte-Carlo-Lauf zeigen</translation>
    </message>
    <message>
        <source>&amp;Worst</source>
        <translation>Schl&amp;echtester</translation>
    </message>
    <message>
        <source>Show the worst Monte Carlo run</source>
        <translation>Den schlechtesten Monte-Carlo-Lauf zeigen</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>&amp;Vorgaben</translation>
    </message>
    <message>
        <source>Reset all settings</source>
        <translation>Alle Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Step</source>
        <translation>Sch&amp;ritt</translation>
    </message>
    <message>
        <source>set meaningful defaults to allow optimization inspection</source>
        <translation>setzt sinnvolle Vorgaben, um der Optimierung zuzusehen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>End the optimization now</source>
        <translation>Die Optimierung jetzt beenden</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
    <message>
        <source>Number of cities: %1</source>
        <translation>Zahl der Städte: %1</translation>
    </message>
    <message>
        <source>City random seed: %1</source>
        <translation>Startwert der Städte: %1</translation>
    </message>
    <message>
        <source>Random seed: %1</source>
        <translation>Startwert: %1</translation>
    </message>
    <message>
        <source>Not yet implemented!</source>
        <translation>Noch nicht vorhanden!</translation>
    </message>
    <message>
        <source>Best MC point, random seed %1</source>
        <translation>Bester MC-Punkt, Startwert %1</translation>
    </message>
    <message>
        <source>Worst MC point, random seed %1</source>
        <translation>Schlechtester MC-Punkt, Startwert %1</translation>
    </message>
    <message>
        <source>Cancelled after %1 of %2 runs</source>
        <translation>Abgebrochen nach %1 von %2 Läufen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>80 MC points</source>
        <translation>80 MC-Punkte</translation>
    </message>
    <message>
        <source>Running, 80 MC points</source>
        <translation>Läuft, 80 MC-Punkte</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormGuideGXL</name>
    <message>
        <source>Guide for Optimization</source>
        <translation>Ratgeber zur Optimierung</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
    <message>
        <source>Your primary constraints:</source>
        <translation>Ihre wichtigsten Bedingungen:</translation>
    </message>
    <message>
        <source>Starting point is probably bad</source>
        <translation>Startpunkt ist vermutlich schlecht</translation>
    </message>
    <message>
        <source>The first design is a guess, or far from what is wanted</source>
        <translation>Der erste Entwurf ist geraten oder weit vom Gewünschten</translation>
    </message>
    <message>
        <source>Designer found a good starting point</source>
        <translation>Der Entwickler hat einen guten Startpunkt gefunden</translation>
    </message>
    <message>
        <source>The first design works already and shall become better</source>
        <translation>Der erste Entwurf arbeitet schon und soll besser werden</translation>
    </message>
    <message>
        <source>Goal to parameter variation highly nonlinear</source>
        <translation>Ziel hängt stark nichtlinear von den Parametern ab</translation>
    </message>
    <message>
        <source>Twice the change of a parameter is far from twice the effect</source>
        <translation>Die doppelte Änderung eines Parameters wirkt bei weitem nicht doppelt</translation>
    </message>
    <message>
        <source>Difficult correlations, many trade-offs</source>
        <translation>Schwierige Abhängigkeiten, viele Zielkonflikte</translation>
    </message>
    <message>
        <source>What improves one property of the design spoils others</source>
        <translation>Was eine Eigenschaft des Entwurfs verbessert, verdirbt andere</translation>
    </message>
    <message>
        <source>How many values the optimizer may change</source>
        <translation>Wie viele Werte der Optimierer ändern darf</translation>
    </message>
    <message>
        <source>&amp;Number of parameters</source>
        <translation>&amp;Zahl der Parameter</translation>
    </message>
    <message>
        <source>A note of the loss that is aimed at, in dB; the estimate does not use it</source>
        <translation>Eine Notiz des angestrebten Verlusts in dB; die Schätzung verwendet sie nicht</translation>
    </message>
    <message>
        <source>&amp;Equivalent loss</source>
        <translation>&amp;Verlust</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormLines</name>
    <message>
        <source>Transmission Line Parameters</source>
        <translation>Leitungsparameter</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>&amp;Line</source>
        <translation>&amp;Leitung</translation>
    </message>
    <message>
        <source>Cross-section of the line</source>
        <translation>Querschnitt der Leitung</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Finden</translation>
    </message>
    <message>
        <source>Zo from dimensions</source>
        <translation>Zo aus Abmessungen</translation>
    </message>
    <message>
        <source>Dimensions from Zo</source>
        <translation>Abmessungen aus Zo</translation>
    </message>
    <message>
        <source>What is given and what is looked for</source>
        <translation>Was gegeben ist und was gesucht wird</translation>
    </message>
    <message>
        <source>&amp;Zo</source>
        <translation>&amp;Zo</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Wanted characteristic impedance</source>
        <translation>Gewünschter Wellenwiderstand</translation>
    </message>
    <message>
        <source>&amp;Electrical length</source>
        <translation>&amp;Elektrische Länge</translation>
    </message>
    <message>
        <source>Wanted at fo; 90° is a quarter wave</source>
        <translation>Gewünscht bei fo; 90° ist eine Viertelwelle</translation>
    </message>
    <message>
        <source>at f&amp;o</source>
        <translation>bei f&amp;o</translation>
    </message>
    <message>
        <source>Follows the design until typed</source>
        <translation>Folgt dem Entwurf, bis Sie tippen</translation>
    </message>
    <message>
        <source>Dimensions</source>
        <translation>Abmessungen</translation>
    </message>
    <message>
        <source>A length may end in mil</source>
        <translation>Eine Länge darf auf mil enden</translation>
    </message>
    <message>
        <source>0: thin metal of unknown loss</source>
        <translation>0: dünnes Metall mit unbekanntem Verlust</translation>
    </message>
    <message>
        <source>Lengt&amp;h</source>
        <translation>L&amp;änge</translation>
    </message>
    <message>
        <source>Of the line from end to end</source>
        <translation>Der Leitung von Ende zu Ende</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Permittivity e&amp;r</source>
        <translation>Permittivität e&amp;r</translation>
    </message>
    <message>
        <source>Of the dielectric, relative: air 1, PTFE 2.1, FR-4 4.4</source>
        <translation>Des Dielektrikums, relativ: Luft 1, PTFE 2.1, FR-4 4.4</translation>
    </message>
    <message>
        <source>Loss &amp;tangent</source>
        <translation>Verlust&amp;winkel tan δ</translation>
    </message>
    <message>
        <source>Of the dielectric: PTFE 0.0004, FR-4 0.02</source>
        <translation>Des Dielektrikums: PTFE 0.0004, FR-4 0.02</translation>
    </message>
    <message>
        <source>&amp;Conductivity</source>
        <translation>Leit&amp;fähigkeit</translation>
    </message>
    <message>
        <source>Copper 58M, silver 61M, gold 41M, aluminium 37M</source>
        <translation>Kupfer 58M, Silber 61M, Gold 41M, Aluminium 37M</translation>
    </message>
    <message>
        <source>Ro&amp;ughness</source>
        <translation>Ra&amp;uheit</translation>
    </message>
    <message>
        <source>Of the metal towards the dielectric, rms</source>
        <translation>Des Metalls zum Dielektrikum hin, effektiv</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Electrical length</source>
        <translation>Elektrische Länge</translation>
    </message>
    <message>
        <source>Effective permittivity</source>
        <translation>Wirksame Permittivität</translation>
    </message>
    <message>
        <source>the same at fo</source>
        <translation>dieselbe bei fo</translation>
    </message>
    <message>
        <source>Velocity factor at fo</source>
        <translation>Verkürzungsfaktor bei fo</translation>
    </message>
    <message>
        <source>Wavelength at fo</source>
        <translation>Wellenlänge bei fo</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Laufzeit</translation>
    </message>
    <message>
        <source>Inductance</source>
        <translation>Induktivität</translation>
    </message>
    <message>
        <source>Capacitance</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>Next mode from</source>
        <translation>Nächster Modus ab</translation>
    </message>
    <message>
        <source>Where another mode begins to propagate</source>
        <translation>Wo sich ein weiterer Modus auszubreiten beginnt</translation>
    </message>
    <message>
        <source>Losses at fo</source>
        <translation>Verluste bei fo</translation>
    </message>
    <message>
        <source>Conductor</source>
        <translation>Leiter</translation>
    </message>
    <message>
        <source>Not known for coplanar lines and metal without thickness</source>
        <translation>Unbekannt bei koplanaren Leitungen und Metall ohne Dicke</translation>
    </message>
    <message>
        <source>Dielectric</source>
        <translation>Dielektrikum</translation>
    </message>
    <message>
        <source>Over the length</source>
        <translation>Über die Länge</translation>
    </message>
    <message>
        <source>Matched line</source>
        <translation>Angepasste Leitung</translation>
    </message>
    <message>
        <source>Q of a resonator</source>
        <translation>Güte als Resonator</translation>
    </message>
    <message>
        <source>Without radiation</source>
        <translation>Ohne Abstrahlung</translation>
    </message>
    <message>
        <source> The loss of their conductors is not computed.</source>
        <translation> Der Verlust ihrer Leiter wird nicht berechnet.</translation>
    </message>
    <message>
        <source> Conductor loss after Wheeler 1942, roughness after Hammerstad and Jensen 1980; strips within 15 % of other formulas.</source>
        <translation> Leiterverlust nach Wheeler 1942, Rauheit nach Hammerstad und Jensen 1980; Streifen auf 15 % anderer Formeln.</translation>
    </message>
    <message>
        <source>No width gives this impedance with the other dimensions.</source>
        <translation>Keine Breite ergibt mit den anderen Abmessungen diesen Wellenwiderstand.</translation>
    </message>
    <message>
        <source>These dimensions make no line.</source>
        <translation>Diese Abmessungen ergeben keine Leitung.</translation>
    </message>
    <message>
        <source>fo must be positive.</source>
        <translation>fo muss positiv sein.</translation>
    </message>
    <message>
        <source>The conductivity must be positive.</source>
        <translation>Die Leitfähigkeit muss positiv sein.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormMixed</name>
    <message>
        <source>Mixed Series/Parallel Circuits</source>
        <translation>Gemischte Serien-/Parallelkreise</translation>
    </message>
    <message>
        <source>Circuit</source>
        <translation>Schaltung</translation>
    </message>
    <message>
        <source>&amp;Connection</source>
        <translation>S&amp;chaltung</translation>
    </message>
    <message>
        <source>How R, L and C are put together</source>
        <translation>Wie R, L und C verbunden sind</translation>
    </message>
    <message>
        <source>Leave empty what the circuit does not have</source>
        <translation>Lassen Sie leer, was die Schaltung nicht hat</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Frequency at which the forms are equal</source>
        <translation>Frequenz, bei der die Formen gleich sind</translation>
    </message>
    <message>
        <source>Impedance at fo</source>
        <translation>Impedanz bei fo</translation>
    </message>
    <message>
        <source>Phase</source>
        <translation>Phase</translation>
    </message>
    <message>
        <source>Quality factor Q</source>
        <translation>Güte Q</translation>
    </message>
    <message>
        <source>Series form</source>
        <translation>Serienform</translation>
    </message>
    <message>
        <source>Parallel form</source>
        <translation>Parallelform</translation>
    </message>
    <message>
        <source>Exact at fo: Rp = Rs (1 + Q²), Xp = Xs (1 + 1/Q²). A positive reactance is an inductor&apos;s.</source>
        <translation>Genau bei fo: Rp = Rs (1 + Q²), Xp = Xs (1 + 1/Q²). Ein positiver Blindwiderstand ist der einer Spule.</translation>
    </message>
    <message>
        <source>Type at least one element.</source>
        <translation>Tippen Sie mindestens ein Element ein.</translation>
    </message>
    <message>
        <source>fo must be positive.</source>
        <translation>fo muss positiv sein.</translation>
    </message>
    <message>
        <source>An element is negative.</source>
        <translation>Ein Element ist negativ.</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormOpt</name>
    <message>
        <source>Optimization Setup and Evaluation</source>
        <translation>Optimierung einrichten und auswerten</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>Einrichtung</translation>
    </message>
    <message>
        <source>Max. number of iterations</source>
        <translation>Höchstzahl der Iterationen</translation>
    </message>
    <message>
        <source>Use 10, 20, 30, etc. if 2-step optimization  is enabled to support reporting</source>
        <translation>Nehmen Sie 10, 20, 30 usw., wenn in 2 Schritten optimiert wird, für die Berichte</translation>
    </message>
    <message>
        <source>Gradient limit</source>
        <translation>Grenze des Gradienten</translation>
    </message>
    <message>
        <source>The run ends when the gradient is shorter than this</source>
        <translation>Der Lauf endet, wenn der Gradient kürzer ist als dies</translation>
    </message>
    <message>
        <source>Evaluation</source>
        <translation>Auswertung</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>Gradient - Function - Parameter Steps</source>
        <translation>Gradient - Funktion - Parameterschritte</translation>
    </message>
    <message>
        <source>Function Calls - Step Size - Parameters</source>
        <translation>Funktionsaufrufe - Schrittweite - Parameter</translation>
    </message>
    <message>
        <source>&amp;Trigger</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>Restart optimization with current settings</source>
        <translation>Die Optimierung mit den gegenwärtigen Einstellungen neu beginnen</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>Open the report of the last run</source>
        <translation>Den Bericht des letzten Laufs öffnen</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>&amp;Vorgaben</translation>
    </message>
    <message>
        <source>Reset all settings</source>
        <translation>Alle Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close the window; the settings stay</source>
        <translation>Das Fenster schließen; die Einstellungen bleiben</translation>
    </message>
    <message>
        <source>Toggle label xy visibility</source>
        <translation>xy-Beschriftung ein/aus</translation>
    </message>
    <message>
        <source>Toggle dx output</source>
        <translation>dx-Ausgabe ein/aus</translation>
    </message>
    <message>
        <source>Toggle lin/log for y in t graph</source>
        <translation>lin/log für y im t-Bild</translation>
    </message>
    <message>
        <source>History file does not exist.</source>
        <translation>Die Verlaufsdatei gibt es nicht.</translation>
    </message>
    <message>
        <source>No program is set up to open %1.</source>
        <translation>Zum Öffnen von %1 ist kein Programm eingerichtet.</translation>
    </message>
    <message>
        <source>Better use 20, 30, 40, etc. to support reporting on 2nd optimization run.</source>
        <translation>Besser 20, 30, 40 usw., damit auch der 2. Optimierungslauf berichtet.</translation>
    </message>
    <message>
        <source>This page has nothing to optimize.</source>
        <translation>Diese Seite hat nichts zu optimieren.</translation>
    </message>
    <message>
        <source>The design is refused: there was nothing to optimize.</source>
        <translation>Der Entwurf wurde abgelehnt: Es gab nichts zu optimieren.</translation>
    </message>
    <message>
        <source>Optimization is switched off.</source>
        <translation>Die Optimierung ist abgeschaltet.</translation>
    </message>
    <message>
        <source>No optimization has been run.</source>
        <translation>Es wurde noch nicht optimiert.</translation>
    </message>
    <message>
        <source>Actually used iterations : %1</source>
        <translation>Ausgeführte Iterationen: %1</translation>
    </message>
    <message>
        <source>Total optimization time : %1ms</source>
        <translation>Gesamte Optimierungszeit: %1ms</translation>
    </message>
    <message>
        <source>Total number of function calls : %1</source>
        <translation>Gesamtzahl der Funktionsaufrufe: %1</translation>
    </message>
    <message>
        <source>(%1 in line search and %2 in gradient)</source>
        <translation>(%1 in der Liniensuche und %2 für Gradienten)</translation>
    </message>
    <message>
        <source>If one simulation takes one minute, then the optimization would take %1hours.</source>
        <translation>Dauerte eine Simulation eine Minute, dann bräuchte die Optimierung %1 Stunden.</translation>
    </message>
    <message>
        <source>Achieved goal function : %1</source>
        <translation>Erreichte Zielfunktion: %1</translation>
    </message>
    <message>
        <source>no run</source>
        <translation>kein Lauf</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormPhi</name>
    <message>
        <source>Phase Response</source>
        <translation>Phasengang</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormProposal</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Suggestions for circuit topology</source>
        <translation>Vorschläge für die Schaltung</translation>
    </message>
    <message>
        <source>No circuit suits these wishes. &quot;Show unsuited circuits too&quot; tells why.</source>
        <translation>Keine Schaltung passt zu diesen Wünschen. &quot;Auch ungeeignete Schaltungen zeigen&quot; sagt, warum.</translation>
    </message>
    <message>
        <source>any</source>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>Your wishes:</source>
        <translation>Ihre Wünsche:</translation>
    </message>
    <message>
        <source>Wanted loaded Q; leave empty if it does not matter</source>
        <translation>Gewünschte Betriebsgüte; leer lassen, wenn sie gleichgültig ist</translation>
    </message>
    <message>
        <source>Wanted bandwidth in Hz, instead of a Q</source>
        <translation>Gewünschte Bandbreite in Hz, statt einer Güte</translation>
    </message>
    <message>
        <source>Wanted V2/V1; below that of the match, the rest is attenuated</source>
        <translation>Gewünschtes V2/V1; unter dem der Anpassung, der Rest wird gedämpft</translation>
    </message>
    <message>
        <source>does not matter</source>
        <translation>gleichgültig</translation>
    </message>
    <message>
        <source>must pass</source>
        <translation>soll durch</translation>
    </message>
    <message>
        <source>must be blocked</source>
        <translation>soll gesperrt sein</translation>
    </message>
    <message>
        <source>Direct current from source to load</source>
        <translation>Gleichstrom von der Quelle zur Last</translation>
    </message>
    <message>
        <source>&amp;Q-Factor</source>
        <translation>&amp;Güte Q</translation>
    </message>
    <message>
        <source>or &amp;Bandwidth</source>
        <translation>oder &amp;Bandbreite</translation>
    </message>
    <message>
        <source>&amp;Ratio v=V2/V1</source>
        <translation>Ver&amp;hältnis v=V2/V1</translation>
    </message>
    <message>
        <source>&amp;DC</source>
        <translation>&amp;Gleichstrom</translation>
    </message>
    <message>
        <source>Suppress &amp;harmonics</source>
        <translation>&amp;Oberwellen unterdrücken</translation>
    </message>
    <message>
        <source>At 2·fo the gain must be at least 6 dB down</source>
        <translation>Bei 2·fo muss die Verstärkung mindestens 6 dB kleiner sein</translation>
    </message>
    <message>
        <source>B&amp;alanced output</source>
        <translation>S&amp;ymmetrischer Ausgang</translation>
    </message>
    <message>
        <source>Two outputs of opposite phase</source>
        <translation>Zwei gegenphasige Ausgänge</translation>
    </message>
    <message>
        <source>R&amp;esistive</source>
        <translation>Oh&amp;msch</translation>
    </message>
    <message>
        <source>A flat pad instead of a tuned circuit</source>
        <translation>Ein Dämpfungsglied statt eines abgestimmten Netzwerks</translation>
    </message>
    <message>
        <source>Am&amp;plifier stage</source>
        <translation>&amp;Verstärkerstufe</translation>
    </message>
    <message>
        <source>The source is a power amplifier to be designed</source>
        <translation>Die Quelle ist ein Leistungsverstärker, der zu entwerfen ist</translation>
    </message>
    <message>
        <source>Circuit</source>
        <translation>Schaltung</translation>
    </message>
    <message>
        <source>GT at fo/dB</source>
        <translation>GT bei fo/dB</translation>
    </message>
    <message>
        <source>-3 dB band</source>
        <translation>-3-dB-Band</translation>
    </message>
    <message>
        <source>2·fo down/dB</source>
        <translation>2·fo gedämpft/dB</translation>
    </message>
    <message>
        <source>Smallest</source>
        <translation>Kleinste</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>Practical</source>
        <translation>Baubar</translation>
    </message>
    <message>
        <source>Double-click or Enter goes to the page, or opens the network that a search has found; parts are ordered by their impedance at fo</source>
        <translation>Doppelklick oder Enter führt zur Seite oder öffnet das gefundene Netzwerk; Bauteile sind nach ihrer Impedanz bei fo geordnet</translation>
    </message>
    <message>
        <source>Show &amp;unsuited circuits too</source>
        <translation>Auch &amp;ungeeignete Schaltungen zeigen</translation>
    </message>
    <message>
        <source>With the reason why they do not suit</source>
        <translation>Mit dem Grund, warum sie nicht passen</translation>
    </message>
    <message>
        <source>Sea&amp;rch networks too</source>
        <translation>Auch Netzwerke su&amp;chen</translation>
    </message>
    <message>
        <source>Rank the best ladders of up to four parts beside the pages</source>
        <translation>Die besten Ketten mit bis zu vier Bauteilen neben den Seiten einordnen</translation>
    </message>
    <message>
        <source>&amp;Go to page</source>
        <translation>&amp;Zur Seite</translation>
    </message>
    <message>
        <source>Show the selected circuit in the main window</source>
        <translation>Die gewählte Schaltung im Hauptfenster zeigen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the table to the clipboard</source>
        <translation>Die Tabelle in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Qui&amp;z...</source>
        <translation>&amp;Quiz...</translation>
    </message>
    <message>
        <source>A quiz on matching</source>
        <translation>Ein Quiz zur Anpassung</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Open network</source>
        <translation>&amp;Netzwerk öffnen</translation>
    </message>
    <message>
        <source>This circuit is designed from your load to your source.
Switch R1 and R2 for its page?</source>
        <translation>Diese Schaltung ist von Ihrer Last zu Ihrer Quelle entworfen.
Sollen R1 und R2 für ihre Seite vertauscht werden?</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormQuiz</name>
    <message>
        <source>Quiz on Matching</source>
        <translation>Quiz zur Anpassung</translation>
    </message>
    <message>
        <source>Ans&amp;wer</source>
        <translation>Ant&amp;wort</translation>
    </message>
    <message>
        <source>A number, with engineering prefix: 4.7n, 10.7M; 2 % off is near enough</source>
        <translation>Eine Zahl, mit technischem Vorsatz: 4.7n, 10.7M; 2 % daneben sind nah genug</translation>
    </message>
    <message>
        <source>One of these is right</source>
        <translation>Eine davon ist richtig</translation>
    </message>
    <message>
        <source>&amp;Answer</source>
        <translation>&amp;Antworten</translation>
    </message>
    <message>
        <source>Check the answer</source>
        <translation>Die Antwort prüfen</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Next question; an open one does not count</source>
        <translation>Nächste Frage; eine offene zählt nicht</translation>
    </message>
    <message>
        <source>N&amp;ew quiz</source>
        <translation>N&amp;eues Quiz</translation>
    </message>
    <message>
        <source>Start again with other numbers</source>
        <translation>Mit anderen Zahlen von vorn beginnen</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
    <message>
        <source>Please type a number, such as 4.7n or 10.7M.</source>
        <translation>Bitte geben Sie eine Zahl ein, etwa 4.7n oder 10.7M.</translation>
    </message>
    <message>
        <source>Right!</source>
        <translation>Richtig!</translation>
    </message>
    <message>
        <source>Not right: %1</source>
        <translation>Nicht richtig: %1</translation>
    </message>
    <message>
        <source>%1 of %2 right</source>
        <translation>%1 von %2 richtig</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormTwoPorts</name>
    <message>
        <source>Two-Ports</source>
        <translation>Zweitore</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>&amp;Written as</source>
        <translation>&amp;Geschrieben als</translation>
    </message>
    <message>
        <source>real and imaginary part</source>
        <translation>Real- und Imaginärteil</translation>
    </message>
    <message>
        <source>magnitude and degrees</source>
        <translation>Betrag und Grad</translation>
    </message>
    <message>
        <source>How complex numbers stand in all fields</source>
        <translation>Wie komplexe Zahlen in allen Feldern stehen</translation>
    </message>
    <message>
        <source>Two-port</source>
        <translation>Zweitor</translation>
    </message>
    <message>
        <source>Followed by</source>
        <translation>Gefolgt von</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Real references. Conversions after Kurokawa 1965 and Frickey 1994, stability after Rollett 1962.</source>
        <translation>Reelle Bezugswiderstände. Umrechnungen nach Kurokawa 1965 und Frickey 1994, Stabilität nach Rollett 1962.</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>What the four numbers below are</source>
        <translation>Was die vier Zahlen darunter sind</translation>
    </message>
    <message>
        <source>Real part or magnitude, imaginary part or degrees</source>
        <translation>Realteil oder Betrag, Imaginärteil oder Grad</translation>
    </message>
    <message>
        <source>refer to</source>
        <translation>bezogen auf</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Resistance for which the S parameters hold</source>
        <translation>Widerstand, für den die S-Parameter gelten</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>&amp;As</source>
        <translation>&amp;Als</translation>
    </message>
    <message>
        <source>The chain as these parameters</source>
        <translation>Die Kette als diese Parameter</translation>
    </message>
    <message>
        <source>Between</source>
        <translation>Zwischen</translation>
    </message>
    <message>
        <source>Port &amp;1</source>
        <translation>Tor &amp;1</translation>
    </message>
    <message>
        <source>Also what resulting S refer to</source>
        <translation>Darauf beziehen sich auch die S des Ergebnisses</translation>
    </message>
    <message>
        <source>Port &amp;2</source>
        <translation>Tor &amp;2</translation>
    </message>
    <message>
        <source>Gain |S21|</source>
        <translation>Verstärkung |S21|</translation>
    </message>
    <message>
        <source>Return loss</source>
        <translation>Rückflussdämpfung</translation>
    </message>
    <message>
        <source>Input impedance</source>
        <translation>Eingangsimpedanz</translation>
    </message>
    <message>
        <source>Stability factor K</source>
        <translation>Stabilitätsfaktor K</translation>
    </message>
    <message>
        <source>|Determinant|</source>
        <translation>|Determinante|</translation>
    </message>
    <message>
        <source>The resistances of the ports must be positive.</source>
        <translation>Die Widerstände der Tore müssen positiv sein.</translation>
    </message>
    <message>
        <source>These parameters describe no two-port between resistances.</source>
        <translation>Diese Parameter beschreiben kein Zweitor zwischen Widerständen.</translation>
    </message>
    <message>
        <source>This two-port has no such matrix.</source>
        <translation>Dieses Zweitor hat keine solche Matrix.</translation>
    </message>
    <message>
        <source>Available gain MAG</source>
        <translation>Verfügbare Verstärkung MAG</translation>
    </message>
    <message>
        <source>Stable gain MSG</source>
        <translation>Stabile Verstärkung MSG</translation>
    </message>
</context>
<context>
    <name>kelvro::TFormVu</name>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Voltage gain V(f)</source>
        <translation>Spannungsverstärkung V(f)</translation>
    </message>
    <message>
        <source>Transducer power gain GT(f)</source>
        <translation>Leistungsverstärkung GT(f)</translation>
    </message>
    <message>
        <source>&amp;Voltage Gain</source>
        <translation>&amp;Spannungsverstärkung</translation>
    </message>
    <message>
        <source>&amp;Power Gain</source>
        <translation>&amp;Leistungsverstärkung</translation>
    </message>
</context>
<context>
    <name>kelvro::TGRHilfeBox</name>
    <message>
        <source>Help on plots</source>
        <translation>Hilfe zu Bildern</translation>
    </message>
</context>
<context>
    <name>kelvro::THilfeBox</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Lists the chapters in which all these words stand</source>
        <translation>Listet die Kapitel, in denen alle diese Wörter stehen</translation>
    </message>
</context>
<context>
    <name>kelvro::TInfoDlg</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>kelvro::TSDIAppForm</name>
    <message>
        <source>Kelvro is running already. This window does not save its settings as it closes; those of the first one stay.</source>
        <translation>Kelvro läuft schon. Dieses Fenster sichert beim Schließen seine Einstellungen nicht; die des ersten bleiben.</translation>
    </message>
    <message>
        <source>The windows speak this language from the next start on.</source>
        <translation>Diese Sprache gilt ab dem nächsten Start des Programms.</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source> - </source>
        <translation> - </translation>
    </message>
    <message>
        <source>Warning: Optimization is disabled!</source>
        <translation>Warnung: Die Optimierung ist abgeschaltet!</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>achieved fmin=</source>
        <translation>erreicht fmin=</translation>
    </message>
    <message>
        <source>Save INI file</source>
        <translation>INI-Datei sichern</translation>
    </message>
    <message>
        <source>INI File (*.ini *.INI)</source>
        <translation>INI-Datei (*.ini *.INI)</translation>
    </message>
    <message>
        <source>Load INI file</source>
        <translation>INI-Datei laden</translation>
    </message>
    <message>
        <source>INI Files (*.ini *.INI)</source>
        <translation>INI-Dateien (*.ini *.INI)</translation>
    </message>
    <message>
        <source>Kelvro - Matching Network and PA Design</source>
        <translation>Kelvro - Anpassnetzwerke und Endstufen</translation>
    </message>
    <message>
        <source>&amp;Print window with </source>
        <translation>Fenster &amp;drucken mit </translation>
    </message>
</context>
<context>
    <name>kelvro::TSplashScreen</name>
    <message>
        <source>Matching Network and PA Design</source>
        <translation>Anpassnetzwerke und Endstufen</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>kelvro::TSweepDlg</name>
    <message>
        <source>Sweep Factor</source>
        <translation>Schrittfaktor</translation>
    </message>
    <message>
        <source>Each click of a spin button changes a value by this factor.</source>
        <translation>Jeder Klick auf einen Pfeilknopf ändert einen Wert um diesen Faktor.</translation>
    </message>
    <message>
        <source>Sweep &amp;Factor</source>
        <translation>Schritt&amp;faktor</translation>
    </message>
    <message>
        <source>Factor of one click of a spin button, 1.0001 to 10</source>
        <translation>Faktor eines Klicks auf einen Pfeilknopf, 1.0001 bis 10</translation>
    </message>
</context>
<context>
    <name>kelvro::TToldlg</name>
    <message>
        <source>Monte-Carlo Analysis</source>
        <translation>Monte-Carlo-Analyse</translation>
    </message>
    <message>
        <source>Capacitance Tolerances</source>
        <translation>Toleranz der Kapazitäten</translation>
    </message>
    <message>
        <source>Inductance Tolerances</source>
        <translation>Toleranz der Induktivitäten</translation>
    </message>
    <message>
        <source>Charac. Imp. Tolerance</source>
        <translation>Toleranz des Wellenwiderst.</translation>
    </message>
    <message>
        <source>Resistance Tolerances</source>
        <translation>Toleranz der Widerstände</translation>
    </message>
    <message>
        <source>The buttons of the gain window draw the runs.</source>
        <translation>Die Knöpfe des Verstärkungsfensters zeichnen die Läufe.</translation>
    </message>
    <message>
        <source>0.1 to 35 percent</source>
        <translation>0.1 bis 35 Prozent</translation>
    </message>
</context>
<context>
    <name>kelvro::TXmaxDlg1</name>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Increase or decrease the value</source>
        <translation>Den Wert erhöhen oder verringern</translation>
    </message>
</context>
<context>
    <name>kelvro::TabSet</name>
    <message>
        <source>Page %1; Ctrl+PgUp and Ctrl+PgDn lead to the one before and the next</source>
        <translation>Seite %1; Strg+Bild auf und Strg+Bild ab führen zur vorigen und zur nächsten</translation>
    </message>
</context>
<context>
    <name>kelvro::TerminationEdit</name>
    <message>
        <source>Impedance: 50, 12-j45, R=10 + L=2n, 50 | C=2p, antenna.s1p</source>
        <translation>Impedanz: 50, 12-j45, R=10 + L=2n, 50 | C=2p, antenne.s1p</translation>
    </message>
    <message>
        <source>…</source>
        <translation>…</translation>
    </message>
    <message>
        <source>Take measured data from a Touchstone file</source>
        <translation>Messdaten aus einer Touchstone-Datei nehmen</translation>
    </message>
    <message>
        <source>Measured impedance</source>
        <translation>Gemessene Impedanz</translation>
    </message>
    <message>
        <source>Touchstone files (*.s1p *.s2p *.S1P *.S2P *.ts)</source>
        <translation>Touchstone-Dateien (*.s1p *.s2p *.S1P *.S2P *.ts)</translation>
    </message>
</context>
<context>
    <name>kelvro::ToolWindow</name>
    <message>
        <source>Cop&amp;y</source>
        <translation>Ko&amp;pieren</translation>
    </message>
    <message>
        <source>Copy all values to the clipboard</source>
        <translation>Alle Werte in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close the window; what stands in it stays</source>
        <translation>Das Fenster schließen; was darin steht, bleibt</translation>
    </message>
    <message>
        <source>A double-click copies this value</source>
        <translation>Ein Doppelklick kopiert diesen Wert</translation>
    </message>
    <message>
        <source>ohm</source>
        <translation>Ohm</translation>
    </message>
</context>
</TS>
