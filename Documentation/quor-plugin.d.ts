// What a plug-in finds as globals, beside the language itself and the parameters of its run.

/** What the server answered. Without these members at all where `url` was no URL. */
interface QuorResponse {
  /** The HTTP status; 0 when there was no response. */
  statusCode: number;
  /** The body; "" when there is none, when it failed half-way and when it is not UTF-8. */
  result: string;
  /** All fields of the response, in the server's letter case; several of one name are joined with ", ". */
  headers: Record<string, string>;
}

/** None of these throws. Paths lead from the plug-in's folder; one with ".." in it is refused. */
interface QuorUtils {
  /** Removes a file, never a folder. */
  removeFile(path: string): void;
  fileExists(path: string): boolean;
  /** Replaces the file whole or, where it cannot, not at all. Makes no folders. */
  writeToFile(path: string, contents: string): void;
  /** Undefined for what is missing or not UTF-8. */
  contentsOfFile(path: string): string | undefined;
  base64Encode(text: string): string;
  /** "" for what is not base64 of UTF-8. */
  base64Decode(text: string): string;
  /** The translated text, or the key without one. */
  localize(key: string): string;
  /** Into the error log, arrays and objects as JSON of their enumerable members: log String(error). */
  log(value: unknown): void;
  markdownToHTML(text: string): string;
  /** Blocks until the response is there, for at most 60 seconds. */
  request(
    url: string,
    method: string,
    headers?: Record<string, string> | null,
    parameters?: Record<string, unknown> | null
  ): QuorResponse | Partial<QuorResponse>;
}

declare const utils: QuorUtils;
